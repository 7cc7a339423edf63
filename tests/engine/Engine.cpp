#include "tests/engine/Engine.h"

namespace brimlow::test {

using namespace Qt::StringLiterals;

TapPositionMapping Engine::bind(const QString& name, TapAction action, double x, double y) {
    TapPositionMapping binding;
    binding.id = QUuid::createUuid();
    binding.name = name;
    binding.action = action;
    binding.samples = {{x, y}};
    binding.explicitMatchRadius = 0.1;
    binding.requireClick = false;
    coordinator.positionMappings.add(binding);
    return binding;
}

void Engine::change(const TapPositionMapping& binding) {
    coordinator.positionMappings.update(binding);
}

QStringList Engine::tapLines(const QString& position, const QStringList& diagnoses) {
    QStringList lines{u"AppCoordinator: TAP "_s + position
                      + u" size=0.500 major=7.00 duration=0.100s"_s};
    for (const auto& diagnosis : diagnoses)
        lines << u"AppCoordinator:   ▸ binding "_s + diagnosis;
    return lines;
}

} // namespace brimlow::test
