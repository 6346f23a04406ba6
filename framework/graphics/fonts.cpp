#include "framework/graphics/fonts.h"

#include "framework/graphics/handles.h"
#include "framework/system/identifiers.h"

#include <algorithm>
#include <tuple>

namespace framework {

namespace {

constexpr StringView DefaultName = u"Tahoma";
constexpr int DefaultSize = 8; // points

constexpr TIdentifier Charsets[] = {
    {ANSI_CHARSET, u"ANSI_CHARSET"},
    {DEFAULT_CHARSET, u"DEFAULT_CHARSET"},
    {SYMBOL_CHARSET, u"SYMBOL_CHARSET"},
    {MAC_CHARSET, u"MAC_CHARSET"},
    {SHIFTJIS_CHARSET, u"SHIFTJIS_CHARSET"},
    {HANGEUL_CHARSET, u"HANGEUL_CHARSET"},
    {JOHAB_CHARSET, u"JOHAB_CHARSET"},
    {GB2312_CHARSET, u"GB2312_CHARSET"},
    {CHINESEBIG5_CHARSET, u"CHINESEBIG5_CHARSET"},
    {GREEK_CHARSET, u"GREEK_CHARSET"},
    {TURKISH_CHARSET, u"TURKISH_CHARSET"},
    {VIETNAMESE_CHARSET, u"VIETNAMESE_CHARSET"},
    {HEBREW_CHARSET, u"HEBREW_CHARSET"},
    {ARABIC_CHARSET, u"ARABIC_CHARSET"},
    {BALTIC_CHARSET, u"BALTIC_CHARSET"},
    {RUSSIAN_CHARSET, u"RUSSIAN_CHARSET"},
    {THAI_CHARSET, u"THAI_CHARSET"},
    {EASTEUROPE_CHARSET, u"EASTEUROPE_CHARSET"},
    {OEM_CHARSET, u"OEM_CHARSET"},
};

constexpr BYTE Qualities[] = {DEFAULT_QUALITY,          DRAFT_QUALITY,       PROOF_QUALITY,
                              NONANTIALIASED_QUALITY,   ANTIALIASED_QUALITY, CLEARTYPE_QUALITY,
                              CLEARTYPE_NATURAL_QUALITY};
constexpr BYTE Pitches[] = {DEFAULT_PITCH, VARIABLE_PITCH, FIXED_PITCH};

// Never destroyed: fonts that live until the program ends give their handles back after that.
THandleCache<HFONT, TFontData>& Handles() {
    static auto& cache = *new THandleCache<HFONT, TFontData>;
    return cache;
}

} // namespace

const TEnumInfo& DescribeEnum(TFontStyle) {
    static const TEnumInfo info{u"TFontStyle", {u"fsBold", u"fsItalic", u"fsUnderline", u"fsStrikeOut"}};
    return info;
}

const TEnumInfo& DescribeEnum(TFontPitch) {
    static const TEnumInfo info{u"TFontPitch", {u"fpDefault", u"fpVariable", u"fpFixed"}};
    return info;
}

const TEnumInfo& DescribeEnum(TFontQuality) {
    static const TEnumInfo info{u"TFontQuality",
                                {u"fqDefault", u"fqDraft", u"fqProof", u"fqNonAntialiased", u"fqAntialiased",
                                 u"fqClearType", u"fqClearTypeNatural"}};
    return info;
}

const TIdentifiers& CharsetIdentifiers() {
    return IdentifiersOf<Charsets>();
}

bool operator<(const TFontData& left, const TFontData& right) {
    const auto key = [](const TFontData& data) {
        return std::tuple(data.Height, data.Style.Bits(), data.Charset, data.Pitch, data.Quality, data.Orientation,
                          StringView(data.Name));
    };
    return key(left) < key(right);
}

int ScreenPixelsPerInch() {
    static const int resolution = ::GetDeviceCaps(TWindowDC(nullptr), LOGPIXELSY);
    return resolution;
}

const TClassInfo& TFont::StaticClass() {
    static const TClassInfo info = DescribeClass<TFont>(
        u"TFont", TGraphicsObject::StaticClass(),
        {Property<&TFont::GetCharset, &TFont::SetCharset>(u"Charset").Named(CharsetIdentifiers()),
         Property<&TFont::GetColor, &TFont::SetColor>(u"Color").Named(ColorIdentifiers()),
         Property<&TFont::GetHeight, &TFont::SetHeight>(u"Height"), Property<&TFont::GetName, &TFont::SetName>(u"Name"),
         Property<&TFont::GetOrientation, &TFont::SetOrientation>(u"Orientation", 0),
         Property<&TFont::GetPitch, &TFont::SetPitch>(u"Pitch", fpDefault),
         Property<&TFont::GetQuality, &TFont::SetQuality>(u"Quality", fqDefault),
         Property<&TFont::GetSize, &TFont::SetSize>(u"Size").NotStored(),
         Property<&TFont::GetStyle, &TFont::SetStyle>(u"Style")});
    return info;
}

TFont::TFont() : FPixelsPerInch(ScreenPixelsPerInch()) {
    FData.Name = DefaultName;
    FData.Height = -::MulDiv(DefaultSize, FPixelsPerInch, 72);
}

void TFont::Assign(TPersistent* source) {
    const TFont* font = As<TFont>(source);
    if (!font) {
        TGraphicsObject::Assign(source);
        return;
    }
    TFontData data = font->FData;
    data.Height = ::MulDiv(data.Height, FPixelsPerInch, font->FPixelsPerInch);
    if (data == FData && font->FColor == FColor)
        return;
    FColor = font->FColor;
    FData = std::move(data);
    DataChanged();
}

bool TFont::Equals(const TFont& other) const {
    return FData == other.FData && FColor == other.FColor;
}

void TFont::SetColor(TColor value) {
    if (FColor == value)
        return;
    FColor = value;
    Changed();
}

void TFont::SetName(const String& value) {
    if (!value.empty())
        Change(FData.Name, value);
}

int TFont::GetSize() const {
    return -::MulDiv(FData.Height, 72, FPixelsPerInch);
}

void TFont::SetSize(int value) {
    SetHeight(-::MulDiv(value, FPixelsPerInch, 72));
}

void TFont::SetPixelsPerInch(int value) {
    if (value > 0)
        FPixelsPerInch = value;
}

void TFont::DataChanged() {
    FHandle.reset();
    Changed();
}

const TSharedHandle<HFONT>& TFont::GetSharedHandle() const {
    if (!FHandle) {
        FHandle = Handles().Get(FData, [this] {
            const LOGFONTW description = GetLogFont();
            return ::CreateFontIndirectW(&description);
        });
    }
    return FHandle;
}

LOGFONTW TFont::GetLogFont() const {
    LOGFONTW result{};
    result.lfHeight = FData.Height;
    result.lfEscapement = FData.Orientation;
    result.lfOrientation = FData.Orientation;
    result.lfWeight = FData.Style.Contains(fsBold) ? FW_BOLD : FW_NORMAL;
    result.lfItalic = FData.Style.Contains(fsItalic);
    result.lfUnderline = FData.Style.Contains(fsUnderline);
    result.lfStrikeOut = FData.Style.Contains(fsStrikeOut);
    result.lfCharSet = FData.Charset;
    result.lfQuality = Qualities[FData.Quality];
    result.lfPitchAndFamily = Pitches[FData.Pitch];
    const std::size_t length = std::min<std::size_t>(FData.Name.size(), LF_FACESIZE - 1);
    std::copy_n(FData.Name.begin(), length, result.lfFaceName);
    return result;
}

void TFont::SetLogFont(const LOGFONTW& value) {
    TFontData data;
    data.Name = FromWide(value.lfFaceName);
    data.Height = static_cast<int>(value.lfHeight);
    data.Orientation = static_cast<int>(value.lfOrientation);
    data.Charset = value.lfCharSet;
    if (value.lfWeight >= FW_BOLD)
        data.Style << fsBold;
    if (value.lfItalic)
        data.Style << fsItalic;
    if (value.lfUnderline)
        data.Style << fsUnderline;
    if (value.lfStrikeOut)
        data.Style << fsStrikeOut;
    const auto quality = std::find(std::begin(Qualities), std::end(Qualities), value.lfQuality);
    if (quality != std::end(Qualities))
        data.Quality = static_cast<TFontQuality>(quality - std::begin(Qualities));
    const auto pitch = std::find(std::begin(Pitches), std::end(Pitches), value.lfPitchAndFamily & 3);
    if (pitch != std::end(Pitches))
        data.Pitch = static_cast<TFontPitch>(pitch - std::begin(Pitches));
    if (data.Name.empty())
        data.Name = FData.Name;
    Change(FData, std::move(data));
}

} // namespace framework
