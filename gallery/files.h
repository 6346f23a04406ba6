#pragma once

#include "framework/system/textform.h"
#include "framework/windows/forms.h"

namespace gallery {
using namespace framework;

/// The folder of the program's file, with a separator at its end.
String ProgramFolder();

/// A text form that designers wrote; without a sign of its encoding it is taken for Central European. Raises
/// EFormSyntax, whose message tells file, line and column, and EFOpenError.
TFormDocument ParseFormFile(const String& fileName);

/// Writes a file or, with EWriteError, leaves the one that is there as it was: what is written goes to a file of its
/// own first, which then takes the place (ReplaceFileW, MoveFileExW). Should the system lose the old file on the way
/// and not put the other one there, the message names that one.
void ReplaceFileBytes(const String& fileName, std::string_view bytes);

/// A form from a text form. Its root is of the class that the file names, if that is registered, and a stand-in for it
/// otherwise.
/// Raises what ParseFormFile and the loader raise; the messages tell file, line and column.
std::unique_ptr<TCustomForm> LoadFormFile(const String& fileName);

} // namespace gallery
