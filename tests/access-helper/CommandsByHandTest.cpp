#include "platform/linux/access/CommandsByHand.h"

#include "tests/access-helper/Namespace.h"

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

class CommandsByHand : public testing::TestWithParam<const char*> {};

TEST_P(CommandsByHand, DoWhatTheHelperDoes) {
    if (const auto missing = missingForNamespace(); !missing.empty())
        GTEST_SKIP() << missing;
    const std::string commands = platform::commandsToInstall().join(u'\n').toStdString();
    EXPECT_EQ(
        outputInNamespace("helper install; mv /run/calls /run/helper-calls; rm $rule\n"
                          "printf '#!/bin/sh\\nexec \"$@\"\\n' >/run/sudo; chmod 755 /run/sudo\n"
                          "cat >/run/typed <<'TYPED'\n"
                          + commands + "\nTYPED\nPATH=/run:$PATH " + GetParam()
                          + " </run/typed; files\n"
                            "cmp /run/calls /run/helper-calls && echo same"),
        "exit 0\n70-brimlow.rules f 644\nexact\nsame\n");
}

INSTANTIATE_TEST_SUITE_P(Shells, CommandsByHand, testing::Values("sh", "bash"),
                         [](const auto& shell) { return shell.param; });

} // namespace
} // namespace brimlow::test
