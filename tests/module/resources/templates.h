// Reads the dialog templates of the module's compiled resources, with the captions that the string
// table gives their controls at run time.
#pragma once

#include <platform/dialog/dialog_template.h>
#include <windows.h>

#include <string>
#include <vector>

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
