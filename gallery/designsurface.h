#pragma once

// The surface of the form designer: a form in design state on which components are placed, chosen, moved and sized.
//
// A click chooses, with Shift it adds or takes away; dragging moves, the grips size, dragging on an empty part chooses
// what the frame touches. What is dragged beyond an edge of the surface scrolls it. Arrows move by a cell of the grid,
// with Ctrl by a pixel, with Shift they size by a pixel; Tab goes on to the next component and from the last one out of
// the surface, Esc to the container, Del deletes; Ctrl+A, C, X, V, Z and Y as everywhere.

#include "framework/windows/scrollbox.h"
#include "framework/windows/timer.h"
#include "gallery/designer_rules.h"
#include "gallery/designform.h"
#include "gallery/rowlist.h"

namespace gallery {

class TDesignMark;

class TDesignSurface : public TScrollingWinControl, public TScriptSpots {
    FRAMEWORK_CLASS(TDesignSurface)

public:
    /// Another component is chosen.
    TNotifyEvent OnSelect;
    /// The form has changed by a step.
    TNotifyEvent OnChange;
    /// A component was placed, or could not be: the tool is done with.
    TNotifyEvent OnPlaced;
    /// Hears of what goes wrong in a key, a click, or an action that Try runs.
    std::function<void(const String& problem)> OnProblem;

    explicit TDesignSurface(TComponent* owner);
    ~TDesignSurface() override;

    /// Shows another form, forgets the steps before and answers the layout of the text. Raises what ParseTextForm and
    /// LoadTextForm raise; then the form stays.
    TFormLayout Open(const std::string& text);
    /// The steps so far, and a way to go on with them another time.
    const TDesignHistory& GetSteps() const { return FHistory; }
    void Resume(TDesignHistory steps);
    /// Shows another form as a step that can be undone.
    void Replace(const std::string& text);
    /// The text of the form, lines ended by LF.
    std::string FormText() const;
    /// The same in another layout. Raises what WriteTextForm raises.
    std::string FormText(const TFormLayout& layout) const;

    /// The same as of the last step.
    const std::string& StepText() const { return FHistory.Present(); }

    /// The class that the next click places; null to choose components.
    void SetTool(const TClassInfo* value) { FTool = value; }
    /// The component chosen last; the form when there is none.
    TComponent* GetSelected() const;
    TCustomForm* GetForm() const { return FForm.get(); }
    /// What the form shown last does not show as its text says: a dataset that cannot be opened here, a reference that
    /// was left out of what was pasted. Empty afterwards.
    std::vector<String> TakeNotes() { return std::exchange(FNotes, {}); }

    /// False when the action raised what OnProblem has heard of; without anybody there it is raised further.
    bool Try(const std::function<void()>& action);

    /// Somebody else changed the form: makes a step of it.
    void NoteChange();
    /// Ends a drag where it is, as a step; nothing happens without one.
    void FinishDrag();
    bool CanUndo() const { return FHistory.CanUndo(); }
    bool CanRedo() const { return FHistory.CanRedo(); }
    void Undo();
    void Redo();
    void CopySelected();
    void CutSelected();
    void Paste();
    void DeleteSelected();
    void SelectAll();

    /// Words: `component NAME`, or `point X Y` of the form.
    std::optional<TRect> FindSpot(const std::vector<String>& words) override;

protected:
    void Paint() override;
    void Dispatch(TMessage& message) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
    void MouseMove(TShiftState shift, int x, int y) override;
    void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;

private:
    enum class TDrag { None, Move, Size, Choose };

    struct TShowing {
        const std::vector<std::string>& Selected;
        bool LeaveOutReferences = false; ///< those that lead nowhere, instead of refusing the form
    };

    TFormLayout Show(const std::string& text, const TShowing& how);
    void FitHost();
    void PaintNow() const;
    TPoint OnForm(int x, int y) const { return {x - FHost->GetLeft(), y - FHost->GetTop()}; }
    TRect OnSurface(const TRect& rect) const { return rect.Offset(FHost->GetLeft(), FHost->GetTop()); }
    TRect PlaceOf(const TComponent& component) const;
    TComponent* ComponentAt(TPoint point) const;
    TWinControl* ContainerAt(TPoint point) const;
    bool IsSelected(const TComponent* component) const;
    void Select(std::vector<TComponent*> components);
    std::vector<std::string> SelectedNames() const;
    bool IsInSelected(const TComponent& component) const;
    /// Those of the selection that move by themselves: not the form, and none inside another of them.
    std::vector<TComponent*> Movable() const;
    void MoveBy(TComponent& component, TPoint distance);
    void PlaceTool(TPoint point);
    void DragTo(TPoint point);
    /// The drag goes on at a point of the surface, the pointer's.
    void DragOn(TPoint pointer);
    void ScrollDragged();
    void EndDrag();
    void ChooseInFrame();
    bool HandleCommand(WORD key);
    void HandleArrow(TPoint direction, TShiftState shift);
    bool SelectNeighbour(int step);
    void PlaceMarks();
    TDesignMark& NextMark();

    std::unique_ptr<TCustomControl> FHost; // disabled, so that the form's windows hear no input
    std::unique_ptr<TDesignForm> FForm;
    std::vector<TComponent*> FSelected;
    std::vector<String> FNotes;
    std::vector<std::unique_ptr<TDesignMark>> FMarks;
    std::size_t FUsedMarks = 0;
    TDesignHistory FHistory;
    const TClassInfo* FTool = nullptr;
    TDrag FDrag = TDrag::None;
    bool FPlacing = false; // the drag sizes what was just placed
    TGrip FGrip;
    TPoint FDragStart;
    TPoint FDragPoint;
    TPoint FPointer;                // of the mouse while it drags, in client pixels
    TTimer FScrollTimer{nullptr};   // runs while that is beyond an edge
    std::vector<TRect> FDragPlaces; // of Movable, or of the component that is sized
};

} // namespace gallery
