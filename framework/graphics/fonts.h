#pragma once

// TFont: typeface, height, style and colour of a text.

#include "framework/graphics/colors.h"
#include "framework/graphics/graphicsobject.h"
#include "framework/system/sets.h"

namespace framework {

struct TEnumInfo;

enum TFontStyle { fsBold, fsItalic, fsUnderline, fsStrikeOut };
using TFontStyles = Set<TFontStyle>;
enum TFontPitch { fpDefault, fpVariable, fpFixed };
enum TFontQuality {
    fqDefault,
    fqDraft,
    fqProof,
    fqNonAntialiased,
    fqAntialiased,
    fqClearType,
    fqClearTypeNatural,
};
/// A character set by its ..._CHARSET number.
using TFontCharset = std::uint8_t;

const TEnumInfo& DescribeEnum(TFontStyle);
const TEnumInfo& DescribeEnum(TFontPitch);
const TEnumInfo& DescribeEnum(TFontQuality);
const TIdentifiers& CharsetIdentifiers();

/// What tells one GDI font from another; the colour is none of it.
struct TFontData {
    String Name;
    int Height = 0;      ///< pixels; negative: of the characters, positive: of the line
    int Orientation = 0; ///< tenths of a degree, anticlockwise
    TFontStyles Style;
    TFontPitch Pitch = fpDefault;
    TFontQuality Quality = fqDefault;
    TFontCharset Charset = DEFAULT_CHARSET;

    friend bool operator==(const TFontData&, const TFontData&) = default;
};
bool operator<(const TFontData& left, const TFontData& right);

class TFont : public TGraphicsObject {
    FRAMEWORK_CLASS(TFont)

public:
    FRAMEWORK_PROPERTY(TFontCharset, Charset, GetCharset, SetCharset);
    FRAMEWORK_PROPERTY(TColor, Color, GetColor, SetColor);
    FRAMEWORK_PROPERTY(int, Height, GetHeight, SetHeight);
    FRAMEWORK_PROPERTY(String, Name, GetName, SetName);
    FRAMEWORK_PROPERTY(int, Orientation, GetOrientation, SetOrientation);
    FRAMEWORK_PROPERTY(TFontPitch, Pitch, GetPitch, SetPitch);
    FRAMEWORK_PROPERTY(TFontQuality, Quality, GetQuality, SetQuality);
    FRAMEWORK_PROPERTY(int, Size, GetSize, SetSize);
    FRAMEWORK_PROPERTY(TFontStyles, Style, GetStyle, SetStyle);
    FRAMEWORK_PROPERTY(int, PixelsPerInch, GetPixelsPerInch, SetPixelsPerInch);
    FRAMEWORK_READ_PROPERTY(HFONT, Handle, GetHandle);

    /// Tahoma, 8 points at the screen's resolution, in the colour of window text.
    TFont();

    /// Takes over the look of another font. At another resolution the size in points stays, not the height.
    void Assign(TPersistent* source) override;
    /// True when both would draw the same text the same way.
    bool Equals(const TFont& other) const;

    TFontCharset GetCharset() const { return FData.Charset; }
    void SetCharset(TFontCharset value) { Change(FData.Charset, value); }
    TColor GetColor() const { return FColor; }
    void SetColor(TColor value);
    /// Pixels; negative: the height of the characters, positive: with the internal leading.
    int GetHeight() const { return FData.Height; }
    void SetHeight(int value) { Change(FData.Height, value); }
    const String& GetName() const { return FData.Name; }
    /// The typeface, at most 31 characters of it count; an empty name changes nothing.
    void SetName(const String& value);
    /// The direction of the line in tenths of a degree, anticlockwise.
    int GetOrientation() const { return FData.Orientation; }
    void SetOrientation(int value) { Change(FData.Orientation, value); }
    TFontPitch GetPitch() const { return FData.Pitch; }
    void SetPitch(TFontPitch value) { Change(FData.Pitch, value); }
    TFontQuality GetQuality() const { return FData.Quality; }
    void SetQuality(TFontQuality value) { Change(FData.Quality, value); }
    /// The height in points (1/72 inch), of opposite sign; rounded to whole points.
    int GetSize() const;
    void SetSize(int value);
    TFontStyles GetStyle() const { return FData.Style; }
    void SetStyle(TFontStyles value) { Change(FData.Style, value); }
    /// The resolution by which size and height are converted. A new one changes the size, not the height.
    int GetPixelsPerInch() const { return FPixelsPerInch; }
    void SetPixelsPerInch(int value);

    /// The GDI font, made when first asked for; equal fonts share it. It may be gone once the font changes.
    HFONT GetHandle() const { return GetSharedHandle().get(); }
    const TSharedHandle<HFONT>& GetSharedHandle() const;
    /// The description from which the handle is made.
    LOGFONTW GetLogFont() const;
    /// Takes over a typeface from the system, such as those of SystemParametersInfo; the colour stays.
    void SetLogFont(const LOGFONTW& value);

private:
    template <class TValue>
    void Change(TValue& field, TValue value) {
        if (field == value)
            return;
        field = value;
        DataChanged();
    }
    void DataChanged();

    TFontData FData;
    TColor FColor = clWindowText;
    int FPixelsPerInch;
    mutable TSharedHandle<HFONT> FHandle;
};

/// The resolution of the primary screen in pixels per inch when the program started (LOGPIXELSY).
int ScreenPixelsPerInch();

} // namespace framework
