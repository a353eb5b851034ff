#include "shell/ScreenMessageBoxes.h"

#include "shell/WindowBehind.h"

#include <QWidget>

#include <windows.h>

namespace shell {

using platform::Answer;
using platform::Buttons;

namespace {

// The toolkit and the system have both two bytes to a letter here.
const wchar_t* WideText(const QString& text) {
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

UINT KindOf(const platform::MessageBoxRequest& request) {
    const UINT icon = request.icon == platform::Icon::Question ? MB_ICONQUESTION : 0;
    return request.buttons == Buttons::Ok ? MB_OK | icon : MB_YESNO | MB_DEFBUTTON2 | icon;
}

}  // namespace

// The system's own boxes, which users know and which programs that read the screen aloud know best.
Answer ScreenMessageBoxes::Show(const platform::MessageBoxRequest& request) {
    const QWidget* window = WindowBehind();
    const HWND owner = window == nullptr ? nullptr : reinterpret_cast<HWND>(window->winId());
    // Without an owner it would come up behind whatever program is in front.
    const UINT place = owner == nullptr ? MB_TASKMODAL | MB_SETFOREGROUND : MB_APPLMODAL;
    const int answer =
        MessageBoxW(owner, WideText(request.text), WideText(request.title), KindOf(request) | place);
    if (request.buttons == Buttons::Ok) {
        return Answer::Ok;
    }
    return answer == IDYES ? Answer::Yes : Answer::No;
}

}  // namespace shell
