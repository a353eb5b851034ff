#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace controls {

/// Tells assistive programs that an object has come into a state or out of it, by the state's name on the
/// accessibility bus. The toolkit passes changes of some states on and keeps others, such as "pressed", to
/// itself. Nothing happens without such a bus.
void TellBusOfState(QObject& object, const QString& state, bool on);

/// Tells assistive programs which part of an object that has the focus is the current one now. The toolkit
/// keeps this to itself as well.
void TellBusOfDescendant(QObject& object, QAccessibleInterface& descendant);

}  // namespace controls
