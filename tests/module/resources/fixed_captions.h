// Texts that tests of letters to press leave out: those of the string table and those that a screen
// shows.
#pragma once

#include <set>
#include <string>

// Captions whose wording is fixed letter for letter, so that they carry no mark. Tab and the arrow
// keys reach their controls.
inline const std::set<std::string>& FixedCaptions() {
    static const std::set<std::string> captions = {
        "Auto", "Manual", "Mailbox Setting...", "About...", "Auto Configure", "Settings:",
        "Mailbox Name:", "Apply", "Mailbox Assignment:", "inch", "mm", "Overlay", "Pages",
        "1st Page Only", "Browse...", "Edit...", "Add...", "Overlay Form Name:",
        "Overlay File Management:", "Grayscale", "Color", "Off", "On", "Saved Settings", "Save",
        "Edit", "Name", "Comment", "List of Saved Settings", "Original Size, Orientation", "Copies",
        "Watermark", "Background", "Repeat", "Delete",
        // The preview, and the service dialogs.
        "Printer View", "Paper View", "Watermark View", "Quality View", "Lightness", "Contrast",
        "Saturation", "DotGainAdjust", "GCR", "BG", "DPL", "DiffusionNoise", "GrayLightness",
        "HueLightness", "CtrHighCutoff", "CtrLowCutoff", "nUp", "nUpMode", "dmDrvPaper", "DevData1",
        "DevData2", "UnsharpMask", "Compression", "AntiAliasing", "ColorMatching", "Mirror",
        "ColorsToPatterns", "EnhanceContrast", "EnhanceLightness", "Hues Correction...",
        "Factory Default",
    };
    return captions;
}
