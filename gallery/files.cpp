#include "gallery/files.h"

#include "framework/system/formloader.h"
#include "framework/system/strings.h"
#include "framework/windows/packages.h"
#include "gallery/standinform.h"

#include <filesystem>
#include <fstream>

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

[[noreturn]] void RefuseToWrite(const String& fileName, DWORD error) {
    throw EWriteError(u"Cannot write file " + QuotedStr(fileName) + u": " + SysErrorMessage(error));
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

} // namespace

void ReplaceFileBytes(const String& fileName, std::string_view bytes) {
    const bool isThere = IsThereToReplace(fileName);
    // In the same folder, as only within a disk one file takes the place of another at once.
    const String folder = std::filesystem::absolute(std::filesystem::path(fileName)).parent_path().u16string();
    String fresh(MAX_PATH, u'\0');
    if (!GetTempFileNameW(WideChars(folder), L"zor", 0, WideChars(fresh)))
        RefuseToWrite(fileName, GetLastError());
    std::ofstream file(std::filesystem::path(WideChars(fresh)), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
    DWORD error = file.good() ? ERROR_SUCCESS : ERROR_DISK_FULL;
    file.close();
    if (error == ERROR_SUCCESS) {
        // A file that is there keeps its attributes and who may read it.
        const BOOL isDone = isThere ? ReplaceFileW(WideChars(fileName), WideChars(fresh), nullptr,
                                                   REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)
                                    : MoveFileExW(WideChars(fresh), WideChars(fileName), MOVEFILE_WRITE_THROUGH);
        error = isDone ? ERROR_SUCCESS : GetLastError();
    }
    if (error != ERROR_SUCCESS) {
        DeleteFileW(WideChars(fresh));
        RefuseToWrite(fileName, error);
    }
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
