#pragma once

/// Ends this process as one that is killed: nothing of it runs any more. The status tells it from others.
[[noreturn]] void EndAtOnce(int status);
