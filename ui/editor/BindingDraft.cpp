#include "ui/editor/BindingDraft.h"

#include "profiles/BlankTrimming.h"

namespace brimlow {

using namespace Qt::StringLiterals;

BindingDraft BindingDraft::create() {
    BindingDraft draft;
    draft.mappingId = QUuid::createUuid();
    draft.name = u"New Binding"_s;
    draft.action = TapAction::switchDesktopRight;
    return draft;
}

BindingDraft BindingDraft::edit(const TapPositionMapping& binding) {
    BindingDraft draft;
    draft.mode = Mode::edit;
    draft.mappingId = binding.id;
    draft.name = binding.name;
    draft.action = binding.action;
    draft.bundleId = binding.appName;
    draft.windowTitle = binding.windowTitle.value_or(QString());
    draft.targetWindowID = binding.targetWindowID;
    draft.samples = binding.samples;
    draft.lastRecordedAt = binding.lastRecordedAt;
    draft.matchRadius = binding.matchRadius();
    draft.minimumPressure = binding.minimumPressure;
    draft.requireClick = binding.requireClick;
    draft.clickForce = binding.clickForce;
    return draft;
}

std::span<const TapAction> BindingDraft::offeredActions() {
    static_assert(allTapActions.back() == TapAction::customCommand);
    return std::span(allTapActions).first(allTapActions.size() - 1);
}

void BindingDraft::chooseAction(TapAction chosen) {
    if (chosen == TapAction::toggleBrimlow && action != chosen)
        requireClick = true;
    action = chosen;
}

void BindingDraft::takeOver(const std::vector<TapSample>& captured, platform::Date now) {
    if (captured.empty())
        return;
    samples = {captured.back()};
    lastRecordedAt = now;
}

bool BindingDraft::canSave() const {
    return !trimmedBlanks(name).isEmpty()
           && !(wantsApplication() && bundleId.value_or(QString()).isEmpty());
}

TapPositionMapping BindingDraft::binding(platform::Date now) const {
    const QStringView trimmed = trimmedBlanks(name);
    TapPositionMapping result{.id = mappingId,
                              .name = trimmed.isEmpty() ? u"Untitled"_s : trimmed.toString(),
                              .action = action};
    if (wantsApplication())
        result.appName = bundleId;
    if (action == TapAction::focusWindow) {
        result.windowTitle = trimmedBlanks(windowTitle).toString();
        result.targetWindowID = targetWindowID;
    }
    result.samples = samples;
    if (!samples.empty())
        result.lastRecordedAt = lastRecordedAt.value_or(now);
    result.explicitMatchRadius = matchRadius;
    result.minimumPressure = minimumPressure;
    result.requireClick = requireClick;
    result.clickForce = clickForce;
    return result;
}

} // namespace brimlow
