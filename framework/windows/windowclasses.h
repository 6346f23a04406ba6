#pragma once

// The window classes that controls have registered, each in the name of the class that needed it first.

#include "framework/graphics/win32.h"
#include "framework/system/published.h"

#include <functional>

namespace framework {

/// Registers a window class of that name (RegisterClass) on behalf of `owner`. EInvalidOperation when Windows refuses.
void RegisterWindowClass(const WNDCLASSW& windowClass, const String& name, const TClassInfo& owner);
/// Takes back the window classes of those owners (UnregisterClass), whose windows must all be gone.
void UnregisterWindowClasses(const std::function<bool(const TClassInfo&)>& isOwner);

} // namespace framework
