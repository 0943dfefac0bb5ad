// Every message box of the module is shown here, so that right-to-left languages get right-to-left
// reading everywhere.
#include "sheet/message_box.h"

#include <cstdio>
#include <cstring>

namespace kvui {
namespace {

bool SystemReadsRightToLeft() {
    char language[260] = "";
    if (GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_SENGLANGUAGE, language, sizeof language) ==
        0) {
        return false;
    }
    return std::strcmp(language, "Arabic") == 0 || std::strcmp(language, "Hebrew") == 0;
}

}  // namespace

int ShowMessage(HWND owner, const char* text, const char* caption, UINT style) {
    return MessageBoxA(owner, text, caption,
                       SystemReadsRightToLeft() ? style | MB_RTLREADING : style);
}

int ShowMessageString(HWND owner, HINSTANCE strings, UINT textId, UINT captionId, UINT style) {
    char text[512];
    char caption[128];
    if (LoadStringA(strings, textId, text, sizeof text) == 0) text[0] = '\0';
    if (LoadStringA(strings, captionId, caption, sizeof caption) == 0) caption[0] = '\0';
    return ShowMessage(owner, text, caption, style);
}

int ShowMessageNaming(HWND owner, HINSTANCE strings, UINT textId, UINT captionId, const char* name,
                      UINT style) {
    char frame[256] = "", text[384], caption[128] = "";
    LoadStringA(strings, textId, frame, sizeof frame);
    LoadStringA(strings, captionId, caption, sizeof caption);
    std::snprintf(text, sizeof text, frame, name);
    return ShowMessage(owner, text, caption, style);
}

// Both texts are for support, so they are not translated.
void ShowDriverHalt(int line) {
    char text[64];
    std::snprintf(text, sizeof text, "Driver halt at line %d of Su_cmn.", line);
    ShowMessage(nullptr, text, "UI Halt Message", MB_ICONHAND);
}

void ShowUnknownType(HWND owner) { ShowMessage(owner, "Code : 0x7F7F ", "Error", MB_ICONHAND); }

}  // namespace kvui
