#pragma once

// The log at the bottom of the gallery: every event as it fires, the newest last. A line that repeats the one before
// counts up instead.

#include "gallery/rowlist.h"

#include <deque>

namespace gallery {

class TEventLog : public TRowList {
    FRAMEWORK_CLASS(TEventLog)

public:
    FRAMEWORK_READ_PROPERTY(String, LastLine, GetLastLine);
    FRAMEWORK_READ_PROPERTY(String, RecentLines, GetRecentLines);

    explicit TEventLog(TComponent* owner);

    /// Cheap: the window follows once the messages that wait are handled.
    void Add(const String& component, const String& event, const String& arguments);
    void Clear();
    int GetCount() const override { return static_cast<int>(FLines.size()); }

    /// "NameEdit.OnKeyDown F7"; empty while there is no line.
    String GetLastLine() const;
    /// The last twenty, one a line.
    String GetRecentLines() const;

protected:
    void Dispatch(TMessage& message) override;
    void PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) override;
    String RowText(int row) const override;

private:
    struct TLine {
        std::uint64_t Number = 0;
        String Component;
        String Event;
        String Arguments;
        int Times = 1;
    };

    std::deque<TLine> FLines;
    std::uint64_t FNextNumber = 1;
    int FShownCount = 0;   // lines when the view last followed them
    int FDropped = 0;      // lines that went at the beginning since then
    bool FChanged = false; // a message that shows the new lines is on its way
};

} // namespace gallery
