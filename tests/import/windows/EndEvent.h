#pragma once

#include "platform/windows/Handle.h"

#include <QString>

#include <windows.h>

/// An event of the system by which a process is asked to end.
class EndEvent : public platform::Handle {
public:
    /// What Ctrl+C would ask for.
    static constexpr int Request = 2;

    explicit EndEvent(qint64 process)
        : Handle(CreateEventW(
              nullptr, TRUE, FALSE,
              reinterpret_cast<const wchar_t*>(QStringLiteral("wrenfield-end-%1").arg(process).utf16()))) {}
};
