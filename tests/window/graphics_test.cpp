// Drawing, read back from memory bitmaps pixel by pixel; handles, counted; pictures, decoded by the system.

#include "framework/graphics/bitmaps.h"
#include "framework/graphics/bufferedpaint.h"
#include "framework/graphics/textmetrics.h"
#include "framework/system/published.h"
#include "tests/support/handlecount.h"

#include <gtest/gtest.h>
#include <random>
#include <wincodec.h>

using namespace framework;
using testsupport::CountHandles;

namespace {

/// The picture as text, one letter a pixel: '.' white, '#' black, 'r' red, 'b' blue, '?' any other.
std::vector<std::string> Picture(TBitmap& bitmap) {
    std::vector<std::string> rows;
    for (int y = 0; y < bitmap.Height; ++y) {
        std::string row;
        for (int x = 0; x < bitmap.Width; ++x) {
            switch (bitmap.GetScanLine(y)[x] & 0xFFFFFF) { // 0xRRGGBB
            case 0xFFFFFF:
                row += '.';
                break;
            case 0x000000:
                row += '#';
                break;
            case 0xFF0000:
                row += 'r';
                break;
            case 0x0000FF:
                row += 'b';
                break;
            default:
                row += '?';
            }
        }
        rows.push_back(row);
    }
    return rows;
}

/// A white bitmap; drawing starts with the default pen and a red brush.
std::unique_ptr<TBitmap> Paper(int width, int height) {
    auto bitmap = std::make_unique<TBitmap>(width, height);
    bitmap->Canvas->FillRect({0, 0, width, height});
    bitmap->Canvas->Brush->Color = clRed;
    return bitmap;
}

int CountOther(TBitmap& bitmap, std::uint32_t color, const TRect& rect) {
    int count = 0;
    for (int y = rect.Top; y < rect.Bottom; ++y)
        for (int x = rect.Left; x < rect.Right; ++x)
            count += (bitmap.GetScanLine(y)[x] & 0xFFFFFF) != color;
    return count;
}

} // namespace

TEST(Canvas, DrawsShapesToTheirDocumentedEdges) {
    struct TCase {
        const char* Name;
        void (*Draw)(TCanvas&);
        std::vector<std::string> Expected;
    };
    const TCase cases[] = {
        {"filled area: edges exclusive",
         [](TCanvas& c) {
             c.FillRect({1, 1, 4, 3});
         },
         {"......", ".rrr..", ".rrr..", "......"}},
        {"frame in the brush's colour",
         [](TCanvas& c) {
             c.FrameRect({0, 0, 5, 4});
         },
         {"rrrrr.", "r...r.", "r...r.", "rrrrr."}},
        {"rectangle: pen outside, brush inside",
         [](TCanvas& c) { c.Rectangle(0, 0, 5, 4); },
         {"#####.", "#rrr#.", "#rrr#.", "#####."}},
        {"clear brush fills nothing",
         [](TCanvas& c) {
             c.Brush->Style = bsClear;
             c.Rectangle({0, 0, 5, 4});
         },
         {"#####.", "#...#.", "#...#.", "#####."}},
        {"clear pen outlines nothing",
         [](TCanvas& c) {
             c.Pen->Style = psClear;
             c.Rectangle(0, 0, 5, 4);
         },
         {"rrrr..", "rrrr..", "rrrr..", "......"}},
        {"lines leave out their last point",
         [](TCanvas& c) {
             c.MoveTo(0, 1);
             c.LineTo(4, 1);
             c.LineTo(4, 3);
         },
         {"......", "#####.", "....#.", "......"}},
        {"exclusive-or pen, drawn twice, leaves no trace",
         [](TCanvas& c) {
             c.Pen->Mode = pmXor;
             c.Pen->Color = clWhite;
             for (int x : {5, 5, 3}) {
                 c.MoveTo(0, 0);
                 c.LineTo(x, 0);
             }
         },
         {"###...", "......", "......", "......"}},
        {"polyline and polygon",
         [](TCanvas& c) {
             const TPoint corner[] = {{5, 0}, {5, 4}};
             c.Polyline(corner);
             const TPoint square[] = {{0, 0}, {2, 0}, {2, 2}, {0, 2}};
             c.Polygon(square);
         },
         {"###..#", "#r#..#", "###..#", ".....#"}},
        {"single pixels",
         [](TCanvas& c) {
             c.Pixels[2][1] = clBlue;
             if (c.Pixels[2][1] == clBlue && c.Pixels[100][1] == clNone)
                 c.Pixels[3][2] = clBlack;
         },
         {"......", "..b...", "...#..", "......"}},
    };
    for (const TCase& test : cases) {
        const auto paper = Paper(6, 4);
        test.Draw(*paper->Canvas);
        EXPECT_EQ(Picture(*paper), test.Expected) << test.Name;
    }
}

TEST(Canvas, WritesTextInTheFontsColourOnTheBrush) {
    const auto paper = Paper(120, 40);
    TCanvas& canvas = *paper->Canvas;
    canvas.Font->Color = clBlue;
    canvas.Font->Quality = fqNonAntialiased;
    const TSize extent = canvas.TextExtent(u"Text");
    ASSERT_GT(extent.Width, 8);
    ASSERT_LT(extent.Width, 100);

    canvas.TextOut(3, 2, u"Text");
    EXPECT_EQ(canvas.PenPos, (TPoint{3 + extent.Width, 2}));
    const TRect box = Bounds(3, 2, extent.Width, extent.Height);
    const int area = extent.Width * extent.Height;
    const int letters = CountOther(*paper, 0xFF0000, box); // all that is not the red background
    EXPECT_GT(letters, 10);
    EXPECT_LT(letters, area / 2);
    EXPECT_EQ(CountOther(*paper, 0x0000FF, box), area - letters);
    EXPECT_EQ(CountOther(*paper, 0xFFFFFF, {0, 0, 120, 40}), area) << "nothing outside the text's box";

    // Without background, cut off at a rectangle that ends inside the text.
    const auto second = Paper(120, 40);
    second->Canvas->Font = canvas.Font;
    second->Canvas->FillRect({}); // the context knows the red brush, and texts must not fill with it any more
    second->Canvas->Brush->Style = bsClear;
    const TRect half = Bounds(3, 2, extent.Width / 2, extent.Height);
    second->Canvas->TextRect(half, 3, 2, u"Text");
    const int cut = CountOther(*second, 0xFFFFFF, {0, 0, 120, 40});
    EXPECT_GT(cut, 4);
    EXPECT_LT(cut, letters);
    EXPECT_EQ(CountOther(*second, 0xFF0000, {0, 0, 120, 40}), 120 * 40) << "no red pixel";
    EXPECT_EQ(CountOther(*second, 0xFFFFFF, half), cut);

    TRect room{0, 0, extent.Width, 0};
    EXPECT_EQ(canvas.TextRect(room, u"Text Text Text", DT_CALCRECT | DT_WORDBREAK), 3 * extent.Height);
    EXPECT_EQ(room.Height(), 3 * extent.Height);
}

TEST(Canvas, MarksTheFocusWhateverTheColours) {
    const auto paper = Paper(9, 5);
    paper->Canvas->Font->Color = clWhite;
    paper->Canvas->DrawFocusRect({0, 0, 9, 5});
    const int dots = CountOther(*paper, 0xFFFFFF, {0, 0, 9, 5});
    EXPECT_GE(dots, 10) << "every other pixel of 24";
    EXPECT_LE(dots, 14);
    paper->Canvas->DrawFocusRect({0, 0, 9, 5});
    EXPECT_EQ(CountOther(*paper, 0xFFFFFF, {0, 0, 9, 5}), 0);
}

TEST(Canvas, GradientRunsFromStartToEnd) {
    TBitmap bitmap(64, 64);
    GradientFillCanvas(bitmap.Canvas, clBlack, TColor{0x0080FF}, {0, 0, 64, 64}, gdVertical);
    EXPECT_EQ(bitmap.Canvas->Pixels[5][0], clBlack);
    for (int y = 1; y < 64; ++y) {
        EXPECT_GE(bitmap.GetScanLine(y)[5], bitmap.GetScanLine(y - 1)[5]) << y;
        EXPECT_EQ(bitmap.GetScanLine(y)[5], bitmap.GetScanLine(y)[60]) << y;
    }
    EXPECT_NEAR(static_cast<int>(bitmap.GetScanLine(63)[5] >> 16 & 0xFF), 0xFF, 5);
    EXPECT_NEAR(static_cast<int>(bitmap.GetScanLine(63)[5] >> 8 & 0xFF), 0x80, 3);

    GradientFillCanvas(bitmap.Canvas, clRed, clBlue, {0, 0, 64, 64}, gdHorizontal);
    EXPECT_EQ(bitmap.Canvas->Pixels[0][63], clRed);
    EXPECT_EQ(bitmap.GetScanLine(0)[30], bitmap.GetScanLine(63)[30]);
}

TEST(Canvas, LeavesTheContextAsItFoundIt) {
    const auto paper = Paper(20, 20);
    TPen thin; // keeps the handle of the canvas's first pen alive while the saved context remembers it
    (void)thin.Handle;
    const HDC dc = ::CreateCompatibleDC(nullptr);
    const UINT kinds[] = {OBJ_FONT, OBJ_PEN, OBJ_BRUSH};
    std::vector<HGDIOBJ> before;
    for (UINT kind : kinds)
        before.push_back(::GetCurrentObject(dc, kind));
    {
        TCanvas canvas;
        EXPECT_THROW(canvas.FillRect({0, 0, 1, 1}), EInvalidOperation);
        canvas.Handle = dc;
        for (int size = 8; size < 12; ++size) {
            canvas.Font->Size = size;
            canvas.Brush->Color = TColor{size};
            EXPECT_EQ(::GetCurrentObject(canvas.Handle, OBJ_FONT), canvas.Font->Handle);
            EXPECT_EQ(::GetCurrentObject(dc, OBJ_BRUSH), canvas.Brush->Handle);
        }
        // Someone saves and restores the context meanwhile: what is drawn next still has the canvas's objects.
        const int saved = ::SaveDC(dc);
        canvas.Pen->Width = 3;
        canvas.Rectangle(0, 0, 1, 1);
        ::RestoreDC(dc, saved);
        EXPECT_EQ(::GetCurrentObject(dc, OBJ_PEN), thin.Handle);
        canvas.Rectangle(0, 0, 1, 1);
        EXPECT_EQ(::GetCurrentObject(dc, OBJ_PEN), canvas.Pen->Handle);
        canvas.Handle = nullptr;
        for (std::size_t i = 0; i < before.size(); ++i)
            EXPECT_EQ(::GetCurrentObject(dc, kinds[i]), before[i]);
        canvas.Handle = dc;
        canvas.TextOut(0, 0, u"x");
    }
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), before[0]) << "a canvas that dies lets go as well";
    ::DeleteDC(dc);
}

TEST(Canvas, CopiesPictures) {
    const auto source = Paper(2, 2);
    source->Canvas->Pixels[0][0] = clRed;
    source->Canvas->Pixels[1][1] = clBlue;
    const auto paper = Paper(6, 4);
    TBitmap empty;
    paper->Canvas->Draw(0, 0, &empty);
    paper->Canvas->Draw(0, 0, source.get());
    paper->Canvas->CopyRect({2, 0, 6, 4}, source->Canvas, {0, 0, 2, 2});
    EXPECT_EQ(Picture(*paper), (std::vector<std::string>{"r.rr..", ".brr..", "....bb", "....bb"}));

    paper->SetSize(3, 6);
    EXPECT_EQ(Picture(*paper), (std::vector<std::string>{"r.r", ".br", "...", "...", "###", "###"}));
    TBitmap copy;
    copy.Assign(paper.get());
    EXPECT_EQ(Picture(copy), Picture(*paper));
    EXPECT_THROW(copy.GetScanLine(6), EListError);
    EXPECT_THROW(copy.SetSize(1 << 20, 1 << 20), EOutOfResources);
    EXPECT_EQ(Picture(copy), Picture(*paper)) << "as it was before the failure";
    copy.Width = 0;
    EXPECT_THROW(copy.Canvas->FillRect({0, 0, 1, 1}), EInvalidOperation);
}

TEST(Font, ConvertsPointsAndTellsOfRealChangesOnly) {
    TFont font;
    int changes = 0;
    font.OnChange = [&](TObject*) { ++changes; };
    EXPECT_EQ(font.Name, u"Tahoma");
    EXPECT_EQ(font.Size, 8);
    font.PixelsPerInch = 96;
    font.Height = -11;
    changes = 0;

    const std::pair<int, int> pointsAndHeight[] = {{8, -11}, {9, -12}, {10, -13}, {12, -16}, {72, -96}};
    for (const auto& [points, height] : pointsAndHeight) {
        font.Size = points;
        EXPECT_EQ(font.Height, height) << points;
        EXPECT_EQ(font.Size, points);
    }
    EXPECT_EQ(changes, 4) << "8 points were there already";

    TFont large;
    large.PixelsPerInch = 192;
    large.Height = -32;
    large.Name = u"Arial";
    large.Style = TFontStyles() << fsBold << fsUnderline;
    large.Color = clRed;
    changes = 0;
    font.Assign(&large);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(font.Height, -16) << "12 points at half the resolution";
    font.Assign(&large);
    font.Name = String();
    font.Name = u"Arial";
    font.Style = large.Style;
    font.Color = clRed;
    EXPECT_EQ(changes, 1);

    TFont fromSystem;
    fromSystem.SetLogFont(font.GetLogFont());
    fromSystem.Color = clRed;
    EXPECT_TRUE(fromSystem.Equals(font));
    TPen pen;
    EXPECT_THROW(font.Assign(&pen), EConvertError);
    EXPECT_THROW(font.Assign(nullptr), EConvertError);
}

TEST(Font, EqualOnesShareAHandleUntilTheLastIsGone) {
    const auto before = CountHandles();
    std::vector<std::unique_ptr<TFont>> fonts;
    for (int i = 0; i < 500; ++i) {
        fonts.push_back(std::make_unique<TFont>());
        fonts.back()->Size = 31;
        fonts.back()->Color = TColor{i};
        EXPECT_EQ(fonts.back()->Handle, fonts.front()->Handle);
    }
    EXPECT_EQ(CountHandles().GdiObjects, before.GdiObjects + 1);
    fonts[7]->Style = TFontStyles() << fsItalic;
    EXPECT_NE(fonts[7]->Handle, fonts[8]->Handle);
    EXPECT_EQ(CountHandles().GdiObjects, before.GdiObjects + 2);

    // A shared handle outlives its fonts for who keeps it, and no longer.
    TSharedHandle<HFONT> kept = fonts[7]->GetSharedHandle();
    fonts.clear();
    EXPECT_EQ(CountHandles().GdiObjects, before.GdiObjects + 1);
    EXPECT_EQ(::GetObjectType(kept.get()), DWORD{OBJ_FONT});
    kept.reset();
    EXPECT_EQ(CountHandles(), before);
}

TEST(Graphics, PublishedDefaultsAreTheConstructedValuesAndNamesReadBack) {
    TFont font;
    TPen pen;
    TBrush brush;
    for (TPersistent* object :
         {static_cast<TPersistent*>(&font), static_cast<TPersistent*>(&pen), static_cast<TPersistent*>(&brush)}) {
        for (const TPropInfo& property : object->ClassInfo().Properties()) {
            if (property.DefaultOrdinal)
                EXPECT_EQ(property.GetOrdinal(*object), *property.DefaultOrdinal);
            if (!property.Names)
                continue;
            for (const String& name : property.Names->Names()) {
                const std::int64_t value = property.Names->FromName(name).value();
                ASSERT_LE(value, property.MaxValue);
                ASSERT_GE(value, property.MinValue);
                property.SetOrdinal(*object, value);
                EXPECT_EQ(property.GetOrdinal(*object), value);
            }
        }
    }
    std::vector<String> order;
    for (const TPropInfo& property : TFont::StaticClass().Properties())
        order.push_back(property.Name);
    EXPECT_EQ(order, (std::vector<String>{u"Charset", u"Color", u"Height", u"Name", u"Orientation", u"Pitch",
                                          u"Quality", u"Size", u"Style"}));
    EXPECT_EQ(ColorIdentifiers().FromName(u"CLBTNFACE"), clBtnFace);
    EXPECT_EQ(ColorIdentifiers().ToName(0x808080), u"clGray") << "not its second name";
    EXPECT_EQ(ColorIdentifiers().ToName(0x123456), std::nullopt);
    EXPECT_EQ(ColorToRGB(clHighlight), ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(ColorToRGB(0x02123456), 0x123456u);
}

TEST(Graphics, PensAndBrushesFollowSystemColours) {
    const int index = COLOR_HIGHLIGHT;
    const COLORREF old = ::GetSysColor(index);
    const COLORREF other = old ^ 0xFFFFFF;
    TBrush brush;
    TPen pen;
    brush.Color = clHighlight;
    pen.Color = clHighlight;
    (void)brush.Handle;
    (void)pen.Handle;
    ::SetSysColors(1, &index, &other);
    LOGBRUSH brushNow{};
    LOGPEN penNow{};
    ::GetObjectW(brush.Handle, sizeof(brushNow), &brushNow);
    ::GetObjectW(pen.Handle, sizeof(penNow), &penNow);
    ::SetSysColors(1, &index, &old);
    EXPECT_EQ(brushNow.lbColor, other);
    EXPECT_EQ(penNow.lopnColor, other);
}

TEST(Graphics, GivesBackEveryHandle) {
    testsupport::ExpectSteadyHandles(1000, [] {
        TBitmap bitmap(30, 20);
        TCanvas& canvas = *bitmap.Canvas;
        canvas.Font->Size = 13;
        canvas.Brush->Color = clInfoBk;
        canvas.Brush->Style = bsDiagCross;
        canvas.Pen->Width = 2;
        canvas.Rectangle(0, 0, 20, 20);
        canvas.Pen->Style = psDot;
        canvas.Brush->Style = bsClear;
        canvas.TextOut(1, 1, u"a");
        canvas.Font->Style = TFontStyles() << fsStrikeOut;
        canvas.RoundRect(0, 0, 9, 9, 3, 3);
        bitmap.SetSize(40, 40);
        TTextMeasure(*canvas.Font).Extent(u"abc");
        const TBufferedPaint unused(canvas.Handle, {0, 0, 5, 5});
        const TWindowDC screen(nullptr, TWindowDC::Whole);
    });
}

TEST(TextMeasure, AgreesWithTheCanvasAndWrapsWords) {
    TFont font;
    font.Size = 10;
    const TTextMeasure measure(font);
    TBitmap bitmap(1, 1);
    bitmap.Canvas->Font = &font;
    EXPECT_EQ(measure.Extent(u"Zażółć gęślą"), bitmap.Canvas->TextExtent(u"Zażółć gęślą"));
    EXPECT_EQ(measure.LineHeight(), bitmap.Canvas->GetTextMetrics().tmHeight);

    const int line = measure.LineHeight();
    const int word = measure.Extent(u"word").Width;
    const TSize wrapped = measure.Layout(u"word word word", DT_WORDBREAK, word + 2);
    EXPECT_EQ(wrapped.Height, 3 * line);
    EXPECT_LE(wrapped.Width, word + 2);
    EXPECT_EQ(measure.Layout(u"word word word", DT_WORDBREAK, 10 * word).Height, line);
    EXPECT_EQ(measure.Layout(u"a\r\nb", 0).Height, 2 * line);
    EXPECT_EQ(measure.Layout(String(), DT_WORDBREAK, 50), (TSize{0, line}));
    EXPECT_EQ(measure.Layout(u"&File", 0).Width, measure.Extent(u"File").Width);
    EXPECT_EQ(measure.Layout(u"&File", DT_NOPREFIX).Width, measure.Extent(u"&File").Width);
}

TEST(BufferedPaint, ReachesTheTargetAtTheEndInTheSamePlace) {
    const auto paper = Paper(6, 4);
    const HDC target = paper->Canvas->Handle;
    {
        const TBufferedPaint buffer(target, {2, 1, 5, 3});
        TCanvas canvas;
        canvas.Handle = buffer;
        canvas.FillRect({0, 0, 6, 4});
        canvas.Brush->Color = clBlue;
        canvas.FillRect({3, 0, 4, 4});
        EXPECT_EQ(Picture(*paper)[1], "......") << "not yet";
        paper->Canvas->FillRect({0, 0, 6, 4});
    }
    EXPECT_EQ(Picture(*paper), (std::vector<std::string>{"rrrrrr", "rr.b.r", "rr.b.r", "rrrrrr"}));
}

namespace {

template <class T>
class TComPointer {
public:
    ~TComPointer() {
        if (FPointer)
            FPointer->Release();
    }
    T** operator&() { return &FPointer; }
    T* operator->() const { return FPointer; }
    T* Get() const { return FPointer; }

private:
    T* FPointer = nullptr;
};

/// The pixels of a PNG file as the system's own decoder reads them, 0x00RRGGBB; empty when it cannot.
std::vector<std::uint32_t> DecodePng(const String& fileName, UINT& width, UINT& height) {
    TComPointer<IWICImagingFactory> factory;
    TComPointer<IWICBitmapDecoder> decoder;
    TComPointer<IWICBitmapFrameDecode> frame;
    TComPointer<IWICFormatConverter> converter;
    ::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory));
    if (!factory.Get() ||
        FAILED(factory->CreateDecoderFromFilename(WideChars(fileName), nullptr, GENERIC_READ,
                                                  WICDecodeMetadataCacheOnLoad, &decoder)) ||
        FAILED(decoder->GetFrame(0, &frame)) || FAILED(frame->GetSize(&width, &height)) ||
        FAILED(factory->CreateFormatConverter(&converter)) ||
        FAILED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone, nullptr, 0,
                                     WICBitmapPaletteTypeCustom)))
        return {};
    std::vector<std::uint32_t> pixels(std::size_t{width} * height);
    if (FAILED(converter->CopyPixels(nullptr, width * 4, static_cast<UINT>(pixels.size() * 4),
                                     reinterpret_cast<BYTE*>(pixels.data()))))
        return {};
    for (std::uint32_t& pixel : pixels)
        pixel &= 0xFFFFFF;
    return pixels;
}

std::vector<std::uint32_t> Pixels(const TBitmap& bitmap) {
    std::vector<std::uint32_t> pixels(bitmap.GetScanLine(0),
                                      bitmap.GetScanLine(0) + bitmap.GetWidth() * bitmap.GetHeight());
    for (std::uint32_t& pixel : pixels)
        pixel &= 0xFFFFFF;
    return pixels;
}

String TemporaryFile() {
    wchar_t folder[MAX_PATH + 1];
    wchar_t file[MAX_PATH + 1];
    ::GetTempPathW(MAX_PATH, folder);
    ::GetTempFileNameW(folder, L"zor", 0, file);
    return FromWide(file);
}

} // namespace

TEST(Bitmap, PngFilesAreReadBackByTheSystem) {
    ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    const unsigned randomSeed = std::random_device()();
    std::mt19937 random(randomSeed);
    struct TCase {
        const char* Name;
        TSize Size;
        std::uint32_t Colors; ///< how many different ones
        int RunLength;        ///< pixels of one colour in a row, on the average
        int Period;           ///< rows after which the picture repeats
    };
    const TCase cases[] = {
        {"a single pixel", {1, 1}, 0xFFFFFF, 1, 1},
        {"a single column", {1, 300}, 3, 1, 300},
        {"a single row", {700, 1}, 3, 50, 1},
        {"one colour", {640, 480}, 1, 1, 1},
        {"areas of few colours", {640, 480}, 3, 50, 480},
        {"noise, which nothing can shorten", {257, 130}, 0xFFFFFF, 1, 130},
        // The farthest that the format can look back is 32768 bytes; a row here takes 64 and 331.
        {"repeats just near enough", {21, 1100}, 0xFFFFFF, 1, 512},
        {"repeats one byte too far", {110, 250}, 0xFFFFFF, 1, 99},
    };
    const String fileName = TemporaryFile();
    for (const TCase& test : cases) {
        TBitmap bitmap(test.Size.Width, test.Size.Height);
        std::uint32_t color = 0;
        for (int y = 0; y < test.Size.Height; ++y) {
            std::uint32_t* row = bitmap.GetScanLine(y);
            for (int x = 0; x < test.Size.Width; ++x) {
                if (random() % test.RunLength == 0)
                    color = random() % test.Colors * (0xFFFFFF / test.Colors);
                row[x] = y < test.Period ? color : bitmap.GetScanLine(y - test.Period)[x];
            }
        }
        bitmap.SaveToPng(fileName);
        UINT width = 0;
        UINT height = 0;
        const auto decoded = DecodePng(fileName, width, height);
        EXPECT_EQ((TSize{static_cast<int>(width), static_cast<int>(height)}), test.Size) << test.Name;
        EXPECT_TRUE(decoded == Pixels(bitmap)) << test.Name << ", seed " << randomSeed;
    }
    ::DeleteFileW(WideChars(fileName));
    EXPECT_THROW(TBitmap(1, 1).SaveToPng(u"Q:\\no\\such\\folder.png"), EOSError);
    ::CoUninitialize();
}

TEST(Bitmap, PhotographsWindowsWithTheirChildren) {
    const HWND window =
        ::CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_BORDER | WS_VISIBLE | WS_CLIPCHILDREN, 100, 100,
                          80, 60, nullptr, nullptr, nullptr, nullptr);
    const HWND child = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_BLACKRECT, 10, 20, 30, 15,
                                         window, nullptr, nullptr, nullptr);
    ASSERT_TRUE(window && child);
    for (MSG message; ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
        ::DispatchMessageW(&message);
    ::UpdateWindow(window);
    ::UpdateWindow(child);

    const auto photograph = CaptureWindow(window);
    ASSERT_EQ(photograph->Width, 80);
    ASSERT_EQ(photograph->Height, 60);
    const TColor face = static_cast<TColor>(ColorToRGB(clBtnFace));
    const TColor inside = static_cast<TColor>(ColorToRGB(cl3DDkShadow)); // what SS_BLACKRECT fills with
    EXPECT_NE(inside, face);
    // The border is one pixel wide.
    EXPECT_NE(photograph->Canvas->Pixels[0][0], face);
    EXPECT_EQ(photograph->Canvas->Pixels[1][1], face);
    EXPECT_EQ(photograph->Canvas->Pixels[10][21], face);
    EXPECT_EQ(photograph->Canvas->Pixels[11][21], inside);
    EXPECT_EQ(photograph->Canvas->Pixels[40][35], inside);
    EXPECT_EQ(photograph->Canvas->Pixels[41][36], face);

    const auto screen = CaptureScreen({100, 100, 180, 160});
    EXPECT_TRUE(Pixels(*screen) == Pixels(*photograph));
    EXPECT_EQ(CaptureScreen()->Width, ::GetSystemMetrics(SM_CXSCREEN));
    ::DestroyWindow(window);
    EXPECT_THROW(CaptureWindow(window), EOSError);
}
