#include "tools/demo/DemoTable.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {

namespace {

using Row = QStringList;

QString change(const QString& before, const QString& after) {
    return before == after ? before : before + u" → "_s + after;
}

QString change(qsizetype before, qsizetype after) {
    return change(QString::number(before), QString::number(after));
}

QString activeName(const DesktopState& state) {
    const auto* window = state.window(state.activeWindow);
    return window ? window->className.section(u'.', 0, 0) : u"-"_s;
}

QString verdict(const DemoResult& result) {
    if (!result.logged)
        return u"NO, not in the log"_s;
    return result.happened ? u"yes"_s : u"NO"_s;
}

Row rowOf(const DemoResult& result) {
    const auto& [step, before, after, logged, happened] = result;
    return {step.gesture,
            step.expectation,
            change(before.currentWorkspace + 1, after.currentWorkspace + 1),
            change(activeName(before), activeName(after)),
            change(before.hiddenWindows(), after.hiddenWindows()),
            change(static_cast<qsizetype>(before.windows.size()),
                   static_cast<qsizetype>(after.windows.size())),
            verdict(result)};
}

} // namespace

QString tableOf(const std::vector<DemoResult>& results) {
    std::vector<Row> rows{{u"gesture"_s, u"what it is to do"_s, u"workspace"_s, u"active window"_s,
                           u"hidden"_s, u"windows"_s, u"happened"_s}};
    std::ranges::transform(results, std::back_inserter(rows), rowOf);

    QString table;
    for (const Row& row : rows) {
        for (qsizetype column = 0; column < row.size(); ++column) {
            qsizetype width = 0;
            for (const Row& each : rows)
                width = std::max(width, each[column].size());
            table += row[column].leftJustified(width + 2);
        }
        table = table.trimmed() + u'\n';
    }
    return table;
}

} // namespace brimlow::desktop
