#pragma once

#include "gwHostEvents.h"
#include "gw_glfwExport.h"

/// Translates a key constant of GLFW. layout_name is what the keyboard's layout prints on the key (UTF-8), or null:
/// where it is one ASCII character it is followed, so that letters are those that the user sees. Control characters
/// are qwerty keys with their ASCII codes: 8 backspace, 9 tabulator, 13 return, 27 escape. The keypad counts as the
/// characters on it. Keys with no number of their own (caps lock, the menu key...) are not reported.
GW_GLFW_EXPORT gwHostKey gw_glfw_key(int glfw_key, const char* layout_name);

/// The number of a button constant of GLFW, as gwHostEvents::button takes it.
GW_GLFW_EXPORT int gw_glfw_button(int glfw_button);

/// Translates the modifier bits of GLFW to bits of gwModifier.
GW_GLFW_EXPORT int gw_glfw_modifiers(int glfw_modifiers);
