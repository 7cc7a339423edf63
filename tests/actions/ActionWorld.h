#pragma once

#include "actions/ActionExecutor.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <memory>

namespace brimlow::test {

/// An executor in a described world: some applications installed, none running.
struct ActionWorld : testing::Test {
    ActionWorld() {
        using namespace Qt::StringLiterals;
        world.applications.install({.id = mail, .name = u"Post"_s, .plainName = u"Mail"_s});
        world.applications.install({.id = mail + u".helper"_s, .plainName = u"Helper"_s});
        world.applications.install({.id = mail + u"box"_s, .plainName = u"Mailbox"_s});
    }

    QString execute(TapAction action, const std::optional<QString>& appName,
                    const std::optional<QString>& title = {},
                    std::optional<std::uint32_t> number = {}) {
        const auto result = executor->execute(action, appName, title, number);
        EXPECT_EQ(world.log.take(platform::Stream::output),
                  QStringList(QStringLiteral("ActionExecutor: AXIsProcessTrusted = true")));
        return result;
    }

    const QString mail = QStringLiteral("org.example.mail");
    TestPlatform world;
    std::unique_ptr<ActionExecutor> executor = std::make_unique<ActionExecutor>();
};

} // namespace brimlow::test
