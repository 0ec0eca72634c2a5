#include "Engine/Locations/EngineLocationKinds.h"

#include <algorithm>

#include "Engine/Stores/UnreachableStore.h"
#include "Host/SyncStrings.h"

EngineLocationKinds::EngineLocationKinds(const std::shared_ptr<StoreOperations> &operations,
                                         QList<EngineLocationKind> kinds)
    : m_kinds(std::move(kinds)),
      m_unknown{
          .schemes = {},
          .type = "Unknown Location",
          .iconName = QStringLiteral("unknown"),
          .title =
              [](const Url &URL) {
                  return URL.isNil() ? localizedSyncString("No Address") : URL.host();
              },
          .createStore =
              [operations](const auto &location, const QString & /*identifier*/) {
                  return std::make_shared<UnreachableStore>(location, operations);
              },
      } {}

const EngineLocationKind &EngineLocationKinds::kindForURL(const Url &URL) const {
    const auto kind = std::find_if(
        m_kinds.begin(), m_kinds.end(),
        [&](const EngineLocationKind &each) { return each.schemes.contains(URL.scheme()); });
    return kind == m_kinds.end() ? m_unknown : *kind;
}
