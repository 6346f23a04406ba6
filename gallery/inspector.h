#pragma once

// The inspector on the right of the gallery: the published properties of one object, read live and changed in place.
//
// Enter or F2 edits the selected row, Esc takes an edit back, Right and Left open and close what has parts, and a
// double click goes on to the next choice. On an event of a form that is being designed, Enter, F2 and a double click
// propose the usual name of a handler. What a line cannot show, texts of several lines and the items of collections, is
// changed in a window of its own: the button with the dots, a double click, Enter or Ctrl+Enter.

#include "gallery/choicelist.h"
#include "gallery/inspector_rules.h"

#include "framework/windows/edit.h"

namespace gallery {

class TInspectorEdit;

class TInspector : public TRowList {
    FRAMEWORK_CLASS(TInspector)

public:
    FRAMEWORK_PROPERTY(TPersistent*, Inspected, GetInspected, SetInspected);
    FRAMEWORK_READ_PROPERTY(String, SelectedPath, GetSelectedPath);
    FRAMEWORK_READ_PROPERTY(String, SelectedText, GetSelectedText);
    FRAMEWORK_READ_PROPERTY(String, Problem, GetProblem);

    /// A value was written.
    TNotifyEvent OnWritten;
    /// Another problem is to be told, or none any more.
    TNotifyEvent OnProblem;

    explicit TInspector(TComponent* owner);
    ~TInspector() override;

    TPersistent* GetInspected() const { return FTree.Root(); }
    void SetInspected(TPersistent* value);
    /// "BoundLabel.Layout"; empty when no row is selected.
    const String& GetSelectedPath() const { return FSelectedPath; }
    String GetSelectedText() const;
    /// Why the last value was not taken; empty when it was.
    const String& GetProblem() const { return FProblem; }

    /// Writes what is being typed.
    void FinishEdit() { EndEdit(true); }
    /// Shows values that changed meanwhile. Cheap when none did.
    void RefreshValues();

    int GetCount() const override { return static_cast<int>(FTree.Rows().size()); }
    /// Words: `row PATH`, and behind it `value`, `button` or `sign` for a part of the row; `choice TEXT` in the open
    /// list. Rows inside others are opened.
    std::optional<TRect> FindSpot(const std::vector<String>& words) override;

protected:
    void Paint() override;
    void PaintRow(TCanvas& canvas, int row, const TRect& rect, bool selected) override;
    String RowText(int row) const override { return Row(row).Path; }
    TColor RowBackground(int, bool) const override { return GetColor(); }
    void SelectionChanged() override;
    void Scrolled() override;
    void Dispatch(TMessage& message) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void KeyPress(char16_t& key) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
    void DoExit() override;
    void Notification(TComponent* component, TOperation operation) override;

private:
    friend class TInspectorEdit;

    const TInspectorRow& Row(int row) const { return FTree.Rows()[static_cast<std::size_t>(row)]; }
    /// Null when no row is selected.
    const TInspectorRow* SelectedRow() const;
    bool IsActive() const;
    bool HasButton(int row) const;
    /// Whether the button opens a window in place of the choices.
    bool HasDialog(int row) const;
    int DividerX() const;
    TRect SignRect(const TInspectorRow& row, const TRect& rect) const;
    TRect ButtonRect(const TRect& rect) const;
    TRect EditRect() const;
    void PaintName(TCanvas& canvas, const TInspectorRow& row, TRect rect, bool selected);
    void PaintValue(TCanvas& canvas, const TInspectorRow& row, TRect rect);
    void PaintButton(TCanvas& canvas, int row, const TRect& rect);
    void PaintSign(TCanvas& canvas, const TInspectorRow& row, const TRect& rect);

    /// Brings the rows up to date: what they refer to may have gone. Ends an edit when they are others now.
    void RefreshTree();
    void TreeChanged();
    void Toggle(int row);
    void Expand(bool expanded);
    /// Enter or F2: whatever is the way to change the row.
    void BeginChange();
    void BeginEdit(const String& text);
    /// A click on the edit: the second one of a double click proposes what Enter would.
    void EditClicked();
    /// Writes the edited text unless it is the old one, and closes the edit.
    void EndEdit(bool write);
    bool IsEditing() const;
    void OpenChoices();
    /// Shows the window in which the row is changed; false for rows that have none.
    bool OpenDialog();
    void ButtonClicked();
    void Write(const String& text);
    void SetProblem(const String& problem);
    bool HandleChoiceKey(WORD key);
    /// Keys that mean the same in the edit and in the list.
    bool HandleCommonKey(WORD key, TShiftState shift);

    TInspectorTree FTree;
    std::vector<String> FShown; // the values as they were when last looked at
    String FSelectedPath;
    String FProblem;
    TInspectorEdit* FEdit;
    TChoiceList* FChoices;
    int FDividerPerMille = 460; // place of the line between names and values
    bool FDragging = false;     // the user moves that line
    bool FRebuilding = false;
    LONG FClickTime = 0;       // of the click that began the edit, in milliseconds as messages have them
    bool FTreeChanged = false; // painted with other rows, of which nobody has been told yet
};

} // namespace gallery
