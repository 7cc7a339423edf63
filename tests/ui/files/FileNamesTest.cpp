#include "ui/files/FileNames.h"

#include <gtest/gtest.h>

namespace brimlow {
namespace {

using namespace Qt::StringLiterals;

TEST(FileNames, AreOnesThatCanBeStored) {
    using Row = std::pair<QString, QString>; // the name, and as it is stored
    const auto times = [](int count, const QString& text) { return text.repeated(count); };
    const QString family = u"👨‍👩‍👧"_s; // 18 bytes, one character
    for (const auto& [name, stored] :
         {Row(u"Brimlow-a \"b\" 100% .c.json"_s, u"Brimlow-a \"b\" 100% .c.json"_s),
          Row(u"a\0b.json"_s, u"ab.json"_s),
          Row(times(250, u"a"_s) + u".json"_s, times(250, u"a"_s) + u".json"_s),
          Row(times(126, u"é"_s) + u".json"_s, times(125, u"é"_s) + u".json"_s),
          Row(times(14, family) + u".json"_s, times(13, family) + u".json"_s),
          Row(u'.' + times(300, u"a"_s), u'.' + times(254, u"a"_s)),
          Row(u"a."_s + times(300, u"b"_s), u"a."_s + times(253, u"b"_s))})
        EXPECT_EQ(storableFileName(name), stored);
}

} // namespace
} // namespace brimlow
