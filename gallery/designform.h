#pragma once

// The form on the designer's surface: it shows the grid, knows its place on the screen without being there, and is
// written to a text form as the program that it belongs to would write it.

#include "framework/graphics/bitmaps.h"
#include "framework/system/formloader.h"
#include "gallery/standinform.h"

namespace gallery {

class TDesignForm : public TStandInForm {
public:
    /// The form that the text describes, in design state and complete, hidden on `parent`. Raises EFormLoad.
    static std::unique_ptr<TDesignForm> Load(const TFormDocument& document, TWinControl* parent,
                                             const TLoadOptions& options);

    /// The form became larger or smaller.
    TNotifyEvent OnSized;

    /// Renames the class, too, if that bears the form's name: Form1 of the class TForm1.
    void SetName(const String& value) override;
    /// Where the program shows the form, in screen pixels; on the surface it always stands at the same place.
    int GetScreenLeft() const { return FScreenPlace.X; }
    void SetScreenLeft(int value) { FScreenPlace.X = value; }
    int GetScreenTop() const { return FScreenPlace.Y; }
    void SetScreenTop(int value) { FScreenPlace.Y = value; }

protected:
    void Resize() override;
    void Paint() override;

private:
    explicit TDesignForm(const TFormObject& form);
    std::unique_ptr<TBitmap> MakeTile() const;

    TPoint FScreenPlace;
    std::unique_ptr<TBitmap> FTile;
    std::uint32_t FTileColor = 0;
};

} // namespace gallery
