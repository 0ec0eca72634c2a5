#include "Platform/Interface/NibConnections.h"

#include "Platform/Foundation/Assertion.h"

namespace {
[[noreturn]] void failToParse(const QString &text, const char *method) {
    failAssertion(QStringLiteral("A form cannot be connected as it says: \"%1\"").arg(text), method,
                  "Platform/Interface/NibConnections");
}
}  // namespace

NibPath NibPath::parse(const QString &text) {
    const QString trimmed = text.trimmed();
    return {trimmed.section(u'.', 0, 0), trimmed.section(u'.', 1).toUtf8()};
}

NibBinding NibBinding::parse(const QString &text) {
    const bool isTwoWay = text.contains(QLatin1StringView("<->"));
    const QStringList sides = text.split(isTwoWay ? QStringLiteral("<->") : QStringLiteral("<-"));
    if (sides.size() != 2 || sides[0].trimmed().isEmpty()) {
        failToParse(text, "NibBinding::parse");
    }
    NibBinding binding;
    binding.key = sides[0].trimmed().toUtf8();
    binding.path = NibPath::parse(sides[1].section(u'|', 0, 0));
    binding.transformer = sides[1].section(u'|', 1).trimmed();
    if (binding.path.keyPath.isEmpty()) {
        failToParse(text, "NibBinding::parse");
    }
    if (isTwoWay) {
        binding.direction = KeyValue::Direction::BothWays;
    }
    return binding;
}

NibAction NibAction::parse(const QString &text) {
    NibAction action;
    const QString trimmed = text.trimmed();
    const QString called = trimmed.section(u'(', 0, 0);
    if (called != trimmed) {
        if (!trimmed.endsWith(u')')) {
            failToParse(text, "NibAction::parse");
        }
        action.argument = NibPath::parse(trimmed.section(u'(', 1).chopped(1));
    }
    action.target = NibPath::parse(called.section(u'.', 0, -2));
    action.method = called.section(u'.', -1).toUtf8();
    if (action.target.object.isEmpty() || action.method.isEmpty()) {
        failToParse(text, "NibAction::parse");
    }
    return action;
}
