// What hosts and the dialog manager need of a property sheet beyond PropertySheetA and its
// messages.
#pragma once

#include <prsht.h>
#include <windows.h>

#include <functional>

namespace kv {

// Control ids of the sheet's own controls.
constexpr int kSheetTabControl = 0x3020;
constexpr int kSheetApplyButton = 0x3021;

// What the owner made of what was applied: a sheet that is refused stays open, with its changes.
enum class SheetAnswer { kTaken, kRefused };

// Called after every page accepted an apply; `closing` says that OK was pressed.
using SheetApplied = std::function<SheetAnswer(HWND sheet, bool closing)>;
void OnSheetApplied(HWND sheet, SheetApplied applied);

// A modeless sheet stays until its owner destroys it; OK and Cancel only mark it as ended.
bool SheetEnded(HWND sheet);
// 1 after OK, 0 after Cancel or while the sheet is open.
INT_PTR SheetResult(HWND sheet);

// Ctrl+Tab, Ctrl+Shift+Tab, Ctrl+PageUp and Ctrl+PageDown turn the pages. The dialog manager asks
// here for every key pressed in a sheet, before its own keys; true means that the key is used up.
// `modifiers` are kv::input::Modifier flags.
bool SheetHandlesKey(HWND sheet, int virtualKey, unsigned modifiers);

}  // namespace kv
