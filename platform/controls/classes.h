// The window procedures of this folder. controls.cpp registers them; nobody else calls them.
#pragma once

#include <windows.h>

namespace kv {

inline constexpr char kSheetClass[] = "KvPropertySheet";

LRESULT ButtonProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT StaticProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT EditProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT ComboBoxProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT ListBoxProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT TrackBarProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT UpDownProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT ToolTipProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT TabControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT SheetProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace kv
