#include "gallery/files.h"

#include "framework/graphics/handles.h"
#include "framework/system/formloader.h"
#include "framework/system/strings.h"
#include "framework/windows/packages.h"
#include "gallery/standinform.h"

#include <algorithm>
#include <filesystem>

namespace gallery {

String ProgramFolder() {
    const String path = ModuleFileName(nullptr);
    return path.substr(0, path.find_last_of(u'\\') + 1);
}

TFormDocument ParseFormFile(const String& fileName) {
    TParseOptions parsing;
    parsing.FallbackEncoding = TFallbackEncoding::Windows1250;
    return ParseTextFormFile(fileName, parsing);
}

namespace {

[[noreturn]] void RefuseToWrite(const String& fileName, DWORD error, const String& note = {}) {
    throw EWriteError(u"Cannot write file " + QuotedStr(fileName) + u": " + SysErrorMessage(error) + note);
}

/// Whether there is a file of that name. Refuses one that may not be written or is in use: replacing it would fail as
/// well, but may leave a file of its own behind.
bool IsThereToReplace(const String& fileName) {
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(WideChars(fileName), GENERIC_WRITE | DELETE, sharing, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        CloseHandle(file);
        return true;
    }
    const DWORD error = GetLastError();
    if (error != ERROR_FILE_NOT_FOUND)
        RefuseToWrite(fileName, error);
    return false;
}

/// Writes a file that is there and empty. Answers the system's error.
DWORD FillFile(const String& fileName, std::string_view bytes) {
    const HANDLE opened =
        CreateFileW(WideChars(fileName), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE)
        return GetLastError();
    const TUniqueKernelHandle file(opened);
    while (!bytes.empty()) {
        const auto part = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 30));
        DWORD written = 0;
        if (!WriteFile(file.Get(), bytes.data(), part, &written, nullptr))
            return GetLastError();
        bytes.remove_prefix(written);
    }
    return ERROR_SUCCESS;
}

bool IsMissing(const String& fileName) {
    return GetFileAttributesW(WideChars(fileName)) == INVALID_FILE_ATTRIBUTES;
}

/// Gives a fresh file the name, and the place of the file that had it. Answers the system's error.
DWORD TakePlace(const String& fresh, const String& fileName, bool isThere) {
    if (isThere) {
        // It keeps its attributes and who may read it.
        if (ReplaceFileW(WideChars(fileName), WideChars(fresh), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr,
                         nullptr))
            return ERROR_SUCCESS;
        const DWORD error = GetLastError();
        if (!IsMissing(fileName)) // it may be: the old file goes before the fresh one comes
            return error;
    }
    return MoveFileExW(WideChars(fresh), WideChars(fileName), MOVEFILE_WRITE_THROUGH) ? ERROR_SUCCESS : GetLastError();
}

} // namespace

void ReplaceFileBytes(const String& fileName, std::string_view bytes) {
    const bool isThere = IsThereToReplace(fileName);
    // In the same folder, as only within a disk one file takes the place of another at once.
    const String folder = std::filesystem::absolute(std::filesystem::path(fileName)).parent_path().u16string();
    String fresh(MAX_PATH, u'\0');
    if (!GetTempFileNameW(WideChars(folder), L"zor", 0, WideChars(fresh)))
        RefuseToWrite(fileName, GetLastError());
    DWORD error = FillFile(fresh, bytes);
    if (error == ERROR_SUCCESS) {
        error = TakePlace(fresh, fileName, isThere);
        if (error == ERROR_SUCCESS)
            return;
        if (isThere && IsMissing(fileName)) // so the fresh one is the only one
            RefuseToWrite(fileName, error, u" (what was to be written is in " + QuotedStr(fresh.c_str()) + u")");
    }
    DeleteFileW(WideChars(fresh));
    RefuseToWrite(fileName, error);
}

std::unique_ptr<TCustomForm> LoadFormFile(const String& fileName) {
    const TFormDocument document = ParseFormFile(fileName);
    const TFormObject root = document.Root();
    const TClassInfo* info = GetClass(root.ClassName());
    std::unique_ptr<TCustomForm> form;
    if (!info)
        form = std::make_unique<TStandInForm>(root);
    else if (info->InheritsFrom(TCustomForm::StaticClass()))
        form.reset(static_cast<TCustomForm*>(info->Create(nullptr)));
    else
        throw EFormSyntax(fileName, root.Line(), root.Column(), u"a " + info->Name() + u" is not a form");
    LoadTextForm(*form, document);
    return form;
}

} // namespace gallery
