// Reads the dialog templates of the module's compiled resources, with the captions that the string
// table gives their controls at run time.
#pragma once

#include <platform/dialog/dialog_template.h>
#include <strings.h>
#include <windows.h>

#include <string>
#include <vector>

// Pages first.
inline constexpr const char* kTemplates[] = {
    "TAB0R", "TAB1R", "TABOVERLAY", "TABWM", "TAB2R", "TAB3", "TAB4", "TABVERSION", "DLGTAB5",
    "DLGTAB6", "_LBPFIRSTPAGE", "_DLGTAB00", "_DLGTAB01", "_DLGTAB02", "_DLGTAB20",
    "_DLGCOMBINATION", "_LBPIMAGESHIFT", "_LBPEDITOVERLAY", "_LBPQUARNWATERCOLOR", "_MAILBOXR",
    "_ABOUTKVI", "_CONFLICTS", "_OPTIONCONFLICT", "_LBPCUSTOMPAPERS", "_LBPEDITPAPER",
    "DLGEASYSET", "DLGSAVEEASYSET", "DLGEDITEASYSET", "DLGCOMMONVIEW", "_DLGKEEPSETTINGADD",
    "_DLGSAVEDATA", "_ADVANCEDSETTINGS", "_HUECORRECTION", "_DLGEDIT0"};
inline constexpr int kPageTemplates = 10;

struct Template {
    std::string name;
    kv::DialogHeader header;
    std::vector<kv::DialogItem> controls;

    const kv::DialogItem* Control(UINT id) const {
        for (const kv::DialogItem& control : controls) {
            if (control.id == id) return &control;
        }
        return nullptr;
    }
};

inline Template LoadTemplate(const char* name) {
    Template result;
    result.name = name;
    const HRSRC resource = FindResourceA(nullptr, name, RT_DIALOG);
    if (!resource) return result;
    const auto* bytes = static_cast<const BYTE*>(LockResource(LoadResource(nullptr, resource)));
    kv::DialogTemplateReader reader({bytes, SizeofResource(nullptr, resource)});
    if (!reader.ReadHeader(result.header)) return result;
    kv::DialogItem control;
    for (int i = 0; i < result.header.itemCount && reader.ReadItem(control); ++i) {
        result.controls.push_back(control);
    }
    return result;
}

inline std::string StringOf(UINT id) {
    char text[256];
    LoadStringA(nullptr, id, text, sizeof text);
    return text;
}

inline bool IsVisible(const kv::DialogItem& control) {
    return (control.style & WS_VISIBLE) != 0;
}

inline bool HasClass(const kv::DialogItem& control, const char* className) {
    return strcasecmp(control.className.c_str(), className) == 0;
}
