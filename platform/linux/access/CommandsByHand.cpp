#include "platform/linux/access/CommandsByHand.h"

#include "access-helper/RuleText.h"
#include "access-helper/UdevCommands.h"

#include <span>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

QString asRoot(std::span<const char* const> words) {
    QString command = u"sudo"_s;
    for (const char* word : words)
        command += u' ' + QString::fromLatin1(word);
    return command;
}

// Between single quotes no shell replaces anything.
QString quoted(std::string_view text) {
    return u'\''
           + QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
                 .replace(u'\'', u"'\\''"_s)
           + u'\'';
}

} // namespace

QStringList commandsToInstall() {
    const QString file =
        QLatin1StringView(access::ruleFolder) + u'/' + QLatin1StringView(access::ruleName);
    return {u"printf %s "_s + quoted(access::ruleText) + u" | sudo tee "_s + file
                + u" >/dev/null"_s,
            asRoot(access::reloadRules), asRoot(access::applyRules)};
}

} // namespace brimlow::platform
