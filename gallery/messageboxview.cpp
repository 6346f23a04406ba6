#include "gallery/messageboxview.h"

#include "framework/system/published.h"

namespace gallery {

namespace {

constexpr wchar_t kDialogClass[] = L"#32770";
constexpr int kTextItem = 0xFFFF; // the number of the control that holds the words

String WindowText(HWND window) {
    if (!window)
        return {};
    String text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
    const int length = GetWindowTextW(window, WideChars(text), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

} // namespace

const TClassInfo& TMessageBoxView::StaticClass() {
    static const TClassInfo info = DescribeClass<TMessageBoxView>(
        u"TMessageBoxView", TPersistent::StaticClass(),
        {Property<&TMessageBoxView::GetCaption>(u"Caption"), Property<&TMessageBoxView::GetText>(u"Text")});
    return info;
}

HWND TMessageBoxView::Find() const {
    for (HWND box = nullptr; (box = FindWindowExW(nullptr, box, kDialogClass, nullptr)) != nullptr;) {
        DWORD process = 0;
        GetWindowThreadProcessId(box, &process);
        if (process == GetCurrentProcessId() && IsWindowVisible(box))
            return box;
    }
    return nullptr;
}

String TMessageBoxView::GetCaption() const {
    return WindowText(Find());
}

String TMessageBoxView::GetText() const {
    const HWND box = Find();
    return WindowText(box ? GetDlgItem(box, kTextItem) : nullptr);
}

} // namespace gallery
