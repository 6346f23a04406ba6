#pragma once

// What the portable rooms ask of the application around them.

#include "framework/system/types.h"

namespace framework {

/// Hands the exception that is being handled, for which nobody else is responsible, to the application, as from its own
/// message loop: call it inside a catch block. A program without an application writes the message to its error output.
void ApplicationHandleException(TObject* sender);

/// The application's answer to ApplicationHandleException; an empty one restores the default.
void SetApplicationExceptionHandler(TNotifyEvent handler);

} // namespace framework
