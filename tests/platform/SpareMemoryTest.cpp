#include "platform/SpareMemory.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace brimlow::test {
namespace {

/// Pages of files that the process holds, in kilobytes.
long filePages() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (word != "RssFile:" && status >> word)
        continue;
    long kilobytes = 0;
    status >> kilobytes;
    return kilobytes;
}

TEST(SpareMemory, GivesPagesOfLibrariesBackAndTheyComeAgain) {
    const auto use = [] { return QLocale(QLocale::German).toString(1234.5, 'f', 1); };
    const auto text = use();
    const long before = filePages();
    platform::returnSpareMemory();
    EXPECT_LT(filePages(), before / 2);
    EXPECT_EQ(use(), text);
}

} // namespace
} // namespace brimlow::test
