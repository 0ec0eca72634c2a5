#include "Engine/Synchronization/RecordTiers.h"

#include <algorithm>
#include <array>

namespace {

/// The sizes in bytes that the records of each tier do not reach.
constexpr std::array<qint64, 3> TierEnds = {8LL << 10, 64LL << 10, RecordTiers::LargeSize};

}  // namespace

QStringList RecordTiers::full(const QHash<QString, qint64> &sizes) {
    std::array<int, TierEnds.size()> counts = {};
    for (const qint64 size : sizes) {
        const auto *const tier = std::upper_bound(TierEnds.begin(), TierEnds.end(), size);
        if (tier != TierEnds.end()) {
            ++counts[static_cast<size_t>(tier - TierEnds.begin())];
        }
    }
    QStringList names;
    const auto highest =
        std::find_if(counts.rbegin(), counts.rend(), [](int count) { return count >= MostInTier; });
    if (highest == counts.rend()) {
        return names;
    }
    const qint64 end = TierEnds[static_cast<size_t>(counts.rend() - highest) - 1];
    for (auto each = sizes.begin(); each != sizes.end(); ++each) {
        if (each.value() < end) {
            names.append(each.key());
        }
    }
    std::sort(names.begin(), names.end(), [&](const QString &one, const QString &other) {
        return sizes.value(one) < sizes.value(other);
    });
    return names.first(qMin(names.size(), qsizetype(MostAtOnce)));
}

void RecordTiers::Use::add(const QList<OperationId> &operations, const IdentifierSet &allCurrent) {
    all += operations.size();
    current += std::count_if(operations.begin(), operations.end(),
                             [&](const OperationId &id) { return allCurrent.contains(id); });
}

bool RecordTiers::Use::isLow(qint64 size) const {
    return size >= LargeSize && all > 0 && current * 2 <= all;
}
