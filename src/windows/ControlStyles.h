// The styles of a form's controls.
#pragma once

#include "windows/Com.h"

namespace tellwick::windows::style {

inline constexpr DWORD Button = WS_TABSTOP | BS_PUSHBUTTON | BS_NOTIFY;
inline constexpr DWORD Check = WS_TABSTOP | BS_AUTOCHECKBOX;
inline constexpr DWORD Option = BS_AUTORADIOBUTTON;  // the chosen one of a group is its tab stop
inline constexpr DWORD DropDown = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
inline constexpr DWORD Field = WS_TABSTOP | ES_AUTOHSCROLL;
inline constexpr DWORD Group = WS_GROUP | BS_GROUPBOX;
inline constexpr DWORD Help = SS_LEFT | SS_NOPREFIX;

// Extended ones. What is behind a group box's frame is the form's to paint.
inline constexpr DWORD SeeThrough = WS_EX_TRANSPARENT;
inline constexpr DWORD Edge = WS_EX_CLIENTEDGE;

}  // namespace tellwick::windows::style
