// The one way from the user to a document.
#pragma once

#include <functional>

/// Runs an event of the user. A run-time failure of it ends there: its message, and then the program's end.
/// Whatever may call a document goes through the guard of its window: the commands, fields, options and grids
/// of the window, and the dialogs that open over it. An exception that left a slot would end the process.
using Guard = std::function<void(const std::function<void()>& event)>;
