#include "gallery/eventlog.h"

#include "framework/graphics/canvas.h"
#include "framework/system/numbers.h"

#include <algorithm>
#include <utility>

namespace gallery {

namespace {

constexpr std::size_t kMostLines = 5000;
constexpr std::size_t kRecentLines = 20;
constexpr UINT kLinesChanged = WM_APP + 1;
constexpr TColor kNumberColor = 0x909090;
constexpr TColor kTailColor = 0x707070;
constexpr TColor kComponentColor = 0xA05000;
constexpr int kMargin = 4;
constexpr int kGap = 10;

} // namespace

const TClassInfo& TEventLog::StaticClass() {
    static const TClassInfo info = DescribeClass<TEventLog>(
        u"TEventLog", TRowList::StaticClass(),
        {Property<&TEventLog::GetLastLine>(u"LastLine"), Property<&TEventLog::GetRecentLines>(u"RecentLines")});
    return info;
}

TEventLog::TEventLog(TComponent* owner) : TRowList(owner) {
    FRowPadding = 1;
}

void TEventLog::Add(const String& component, const String& event, const String& arguments) {
    // A pointer on its way across a control fills one line, not a hundred.
    const bool repeats = !FLines.empty() && FLines.back().Component == component && FLines.back().Event == event &&
                         (FLines.back().Arguments == arguments || event == u"OnMouseMove");
    if (repeats) {
        ++FLines.back().Times;
        FLines.back().Arguments = arguments;
    } else {
        if (FLines.size() == kMostLines) {
            FLines.pop_front();
            ++FDropped;
        }
        FLines.push_back({FNextNumber++, component, event, arguments, 1});
    }
    if (!FChanged && HandleAllocated())
        FChanged = PostMessageW(FHandle, kLinesChanged, 0, 0) != FALSE;
}

void TEventLog::Clear() {
    FLines.clear();
    FNextNumber = 1;
    FShownCount = 0;
    FDropped = 0;
    RowsChanged();
}

void TEventLog::Dispatch(TMessage& message) {
    if (message.Msg != kLinesChanged) {
        TRowList::Dispatch(message);
        return;
    }
    FChanged = false;
    // The view follows the end unless somebody has scrolled away from it.
    const bool atEnd = GetTopIndex() + RowsInView() >= FShownCount;
    FShownCount = GetCount();
    RowsRemovedAbove(std::exchange(FDropped, 0));
    RowsChanged();
    if (atEnd)
        SetTopIndex(GetCount());
}

String TEventLog::RowText(int row) const {
    const TLine& line = FLines[static_cast<std::size_t>(row)];
    return line.Component + u"." + line.Event + (line.Arguments.empty() ? String() : u" " + line.Arguments);
}

String TEventLog::GetLastLine() const {
    return FLines.empty() ? String() : RowText(GetCount() - 1);
}

String TEventLog::GetRecentLines() const {
    String text;
    for (std::size_t i = FLines.size() - std::min(FLines.size(), kRecentLines); i < FLines.size(); ++i)
        text += RowText(static_cast<int>(i)) + u"\n";
    return text;
}

void TEventLog::PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) {
    const TLine& line = FLines[static_cast<std::size_t>(row)];
    const bool marked = selected && Focused();
    const int y = rect.Top + FRowPadding;
    const String number = UIntToStr(line.Number);
    const String name = line.Component + u"." + line.Event;
    const String tail = (line.Arguments.empty() ? String() : u"  " + line.Arguments) +
                        (line.Times > 1 ? u"  \u00D7" + IntToStr(line.Times) : String());
    const auto color = [&](TColor value) {
        if (!marked)
            canvas.GetFont()->SetColor(value);
    };
    // Numbers of up to five digits stand one below the other.
    const int column = rect.Left + kMargin + canvas.TextWidth(u"00000");
    color(kNumberColor);
    canvas.TextOut(column - canvas.TextWidth(number), y, number);
    // The parts in their colours are parts of one text, so that the letters stand as if there were no parts.
    const String text = name + tail;
    const int left = column + kGap;
    int from = left;
    const auto write = [&](TColor value, int to) {
        color(value);
        canvas.TextRect({from, rect.Top, to, rect.Bottom}, left, y, text);
        from = to;
    };
    write(kComponentColor, left + canvas.TextWidth(line.Component));
    write(GetFont()->GetColor(), left + canvas.TextWidth(name));
    write(kTailColor, rect.Right);
}

} // namespace gallery
