#pragma once

#include <QString>

namespace controls {

/// Types into whatever has the focus by the time the present event is done, as if the user had pressed the
/// keys. The modifier keys that the user holds down count: Tab passes the focus on in the direction he moves
/// in.
void SendTab();
void SendText(const QString& text);

}  // namespace controls
