#pragma once

namespace shell {

/// What the button Finish starts: the whole import under the hourglass, and the message at its end. What
/// can't be reported and passed over comes out of here, with the hourglass still on.
void RunImport(bool restartRequested);

}  // namespace shell
