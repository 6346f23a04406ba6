#pragma once

#include "framework/windows/forms.h"

namespace gallery {
using namespace framework;

/// The bytes of a file; EOSError, with the file's name in its message, when it cannot be read.
std::string ReadFile(const String& fileName);
/// The folder of the program's file, with a separator at its end.
String ProgramFolder();

/// A form from a text form. Its root is of the class that the file names, if that is registered, and a stand-in for it
/// otherwise.
/// Raises EFormSyntax and what the loader raises; the messages tell file, line and column.
std::unique_ptr<TCustomForm> LoadFormFile(const String& fileName);

} // namespace gallery
