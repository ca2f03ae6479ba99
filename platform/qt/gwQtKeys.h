#pragma once

#include "gwHostEvents.h"

#include <Qt>

/// Translates a key of Qt (Qt::Key). Keys with no number of their own are not reported.
gwHostKey gw_qt_key(int qt_key);

/// The number of a button, as gwHostEvents::button takes it.
int gw_qt_button(Qt::MouseButton button);

/// Translates the modifiers of Qt to bits of gwModifier.
int gw_qt_modifiers(Qt::KeyboardModifiers modifiers);
