#include "framework/vtree/stringtree.h"

#include "framework/graphics/canvas.h"
#include "framework/graphics/textmetrics.h"

#include <algorithm>
#include <utility>

namespace framework {

namespace {

constexpr std::size_t kLongestShown = 10000; // characters; what is longer is wider than any screen

} // namespace

const TEnumInfo& DescribeEnum(TVSTTextType) {
    static const TEnumInfo info{u"TVSTTextType", {u"ttNormal", u"ttStatic"}};
    return info;
}

// What all trees publish

TPropRows treerows::Properties() {
    namespace row = controlrows;
    using T = TBaseVirtualTree;
    return {
        row::Align(),
        row::Anchors(),
        row::BiDiMode(),
        row::ControlBorder(Property<&T::GetBorderStyle, &T::SetBorderStyle>(u"BorderStyle", bsSingle)),
        row::Color(clWindow),
        Property<&T::GetColors, &T::SetColors>(u"Colors"),
        row::Constraints(),
        row::Ctl3D(),
        Property<&T::GetDefaultNodeHeight, &T::SetDefaultNodeHeight>(u"DefaultNodeHeight", 18),
        row::Enabled(),
        row::Font(),
        Property<&T::GetHeader, &T::SetHeader>(u"Header"),
        Property<&T::GetHintMode, &T::SetHintMode>(u"HintMode", hmDefault),
        Property<&T::GetIncrementalSearch, &T::SetIncrementalSearch>(u"IncrementalSearch", isNone),
        Property<&T::GetIncrementalSearchTimeout, &T::SetIncrementalSearchTimeout>(u"IncrementalSearchTimeout", 1000),
        Property<&T::GetIndent, &T::SetIndent>(u"Indent", 18),
        Property<&T::GetMargin, &T::SetMargin>(u"Margin", 4),
        Property<&T::GetNodeDataSize, &T::SetNodeDataSize>(u"NodeDataSize", 0),
        row::ParentBiDiMode(),
        row::ParentColor(false),
        row::ParentCtl3D(),
        row::ParentFont(),
        row::ParentShowHint(),
        Property<&T::GetRootNodeCount, &T::SetRootNodeCount>(u"RootNodeCount", 0),
        Property<&T::GetSelectionBlendFactor, &T::SetSelectionBlendFactor>(u"SelectionBlendFactor", 128),
        row::ShowHint(),
        row::TabOrder(),
        row::TabStop(true),
        Property<&T::GetTextMargin, &T::SetTextMargin>(u"TextMargin", 4),
        Property<&T::GetTreeOptions, &T::SetTreeOptions>(u"TreeOptions"),
        row::Visible()};
}

TPropRows treerows::Events() {
    namespace row = controlrows;
    using T = TBaseVirtualTree;
    return {Event<&T::OnAfterCellPaint>(u"OnAfterCellPaint"),
            Event<&T::OnBeforeCellPaint>(u"OnBeforeCellPaint"),
            Event<&T::OnChange>(u"OnChange"),
            Event<&T::OnChecked>(u"OnChecked"),
            Event<&T::OnChecking>(u"OnChecking"),
            row::OnClick(),
            Event<&T::OnCollapsed>(u"OnCollapsed"),
            Event<&T::OnCollapsing>(u"OnCollapsing"),
            Event<&T::OnColumnResize>(u"OnColumnResize"),
            Event<&T::OnCompareNodes>(u"OnCompareNodes"),
            row::OnDblClick(),
            Event<&T::OnExpanded>(u"OnExpanded"),
            Event<&T::OnExpanding>(u"OnExpanding"),
            row::FocusEvents(),
            Event<&T::OnFocusChanged>(u"OnFocusChanged"),
            Event<&T::OnFocusChanging>(u"OnFocusChanging"),
            Event<&T::OnFreeNode>(u"OnFreeNode"),
            Event<&T::OnGetHint>(u"OnGetHint"),
            Event<&T::OnHeaderClick>(u"OnHeaderClick"),
            Event<&T::OnHeaderDragged>(u"OnHeaderDragged"),
            Event<&T::OnHeaderDragging>(u"OnHeaderDragging"),
            Event<&T::OnHeaderDraw>(u"OnHeaderDraw"),
            Event<&T::OnIncrementalSearch>(u"OnIncrementalSearch"),
            Event<&T::OnInitChildren>(u"OnInitChildren"),
            Event<&T::OnInitNode>(u"OnInitNode"),
            row::KeyEvents(),
            Event<&T::OnMeasureItem>(u"OnMeasureItem"),
            row::MouseEvents(),
            row::OnMouseWheel(),
            Event<&T::OnNodeClick>(u"OnNodeClick"),
            Event<&T::OnNodeDblClick>(u"OnNodeDblClick"),
            row::OnResize(),
            Event<&T::OnScroll>(u"OnScroll")};
}

// Texts

const TClassInfo& TCustomVirtualStringTree::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TCustomVirtualStringTree>(u"TCustomVirtualStringTree", TBaseVirtualTree::StaticClass());
    return info;
}

const TClassInfo& TVirtualStringTree::StaticClass() {
    using S = TCustomVirtualStringTree;
    static const TClassInfo info = DescribeClass<TVirtualStringTree>(
        u"TVirtualStringTree", S::StaticClass(),
        {treerows::Properties(),
         Property<&S::GetDefaultText, &S::SetDefaultText>(u"DefaultText").StoredWhen<&S::DefaultTextStored>(),
         treerows::Events(), Event<&S::OnGetText>(u"OnGetText"), Event<&S::OnPaintText>(u"OnPaintText")});
    return info;
}

TCustomVirtualStringTree::TCustomVirtualStringTree(TComponent* owner) : TBaseVirtualTree(owner) {
}

void TCustomVirtualStringTree::SetDefaultText(const String& value) {
    FDefaultText = value;
    Invalidate();
}

void TCustomVirtualStringTree::DoGetText(TVirtualNode* node, TColumnIndex column, TVSTTextType textType, String& text) {
    Fire(*this, OnGetText, this, node, column, textType, text);
}

void TCustomVirtualStringTree::DoPaintText(TVirtualNode* node, TCanvas& canvas, TColumnIndex column,
                                           TVSTTextType textType) {
    Fire(*this, OnPaintText, this, &canvas, node, column, textType);
}

String TCustomVirtualStringTree::TextOf(TVirtualNode* node, TColumnIndex column, std::size_t wanted) {
    const std::size_t before = std::exchange(FTextWanted, wanted); // of a handler that asks for another text
    const TAtScopeEnd asked(*this, [this, before] { FTextWanted = before; });
    String text = FDefaultText;
    DoGetText(node, column, ttNormal, text);
    return text;
}

String TCustomVirtualStringTree::NodeText(TVirtualNode* node, TColumnIndex column) {
    return TextOf(node, column, String::npos);
}

int TCustomVirtualStringTree::DoGetNodeWidth(TVirtualNode* node, TColumnIndex column) {
    const String text = TextOf(node, column, kLongestShown);
    return TTextMeasure(*GetFont()).Extent(StringView(text).substr(0, kLongestShown)).Width;
}

TColor TBaseVirtualTree::TextColor(const TVTPaintInfo& info) const {
    if (!GetEnabled() || info.Node->Has(vsDisabled))
        return clGrayText;
    if (info.Selected && !HasPaint(toUseBlendedSelection))
        return Focused() ? GetColors()->GetSelectionTextColor() : GetFont()->GetColor();
    if (HasPaint(toHotTrack) && IsHot(info.Node))
        return GetColors()->GetHotColor();
    return GetFont()->GetColor();
}

void TCustomVirtualStringTree::DoPaintNode(TVTPaintInfo& info) {
    TLifeGuard alive(*this);
    const TNodeRef still(Nodes(), info.Node);
    const String text = TextOf(info.Node, info.Column, kLongestShown);
    if (!alive || !still || text.empty())
        return;
    TColor color = TextColor(info);
    HDC dc = info.DC;
    const bool otherFont = OnPaintText || HandlersPaint();
    if (otherFont) {
        info.Canvas->SetFont(GetFont());
        info.Canvas->GetFont()->SetColor(color);
        if (OnPaintText)
            DoPaintText(info.Node, *info.Canvas, info.Column, ttNormal);
        if (!alive || !still)
            return;
        color = info.Canvas->GetFont()->GetColor();
        dc = info.Canvas->GetHandle();
    }
    SetTextColor(dc, ColorToRGB(color));
    SetBkMode(dc, TRANSPARENT);
    DrawCellText(dc, text, info, !otherFont);
}

/// Whether a text in the tree's font takes at most this width, as far as that can be known without measuring it.
bool TBaseVirtualTree::FitsSurely(const String& text, int width) {
    constexpr int kDoubt = 4;          // pixels by which letters may reach over their places
    constexpr std::size_t kMost = 200; // characters; longer ones are no matter
    if (text.size() > kMost || !TSummedWidths::IsPlain(text))
        return false;
    if (!FWidths) {
        FWidths = std::make_unique<TSummedWidths>(*GetFont());
        FLineHeight = TTextMeasure(*GetFont()).LineHeight();
    }
    return FWidths->Of(text) <= width - kDoubt;
}

bool TBaseVirtualTree::DrawCellText(HDC dc, const String& text, const TVTPaintInfo& info, bool ownFont) {
    const RECT room = ToWin(info.ContentRect.Inflated(-GetTextMargin(), 0));
    const int width = room.right - room.left;
    if (width <= 0)
        return text.empty();
    // A text of any length costs what shows of it: hardly a letter is narrower than a quarter of a pixel.
    const auto length = static_cast<int>(std::min<std::size_t>(text.size(), static_cast<std::size_t>(width) * 4 + 64));
    int fitting = length;
    SIZE size{};
    if (ownFont && info.Alignment == taLeftJustify && FitsSurely(text, width))
        size.cy = FLineHeight; // measuring takes a third of the time of drawing
    else
        GetTextExtentExPointW(dc, WideChars(text), length, width, &fitting, nullptr, &size);
    if (fitting < length) {
        RECT cut = room;
        UINT flags = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX;
        flags |= info.Alignment == taRightJustify ? DT_RIGHT : info.Alignment == taCenter ? DT_CENTER : DT_LEFT;
        flags |= UseRightToLeftReading() ? DT_RTLREADING : 0u;
        DrawTextW(dc, WideChars(text), length, &cut, flags);
        return false;
    }
    int left = room.left;
    if (info.Alignment == taRightJustify)
        left = room.right - size.cx;
    else if (info.Alignment == taCenter)
        left = (room.left + room.right - size.cx) / 2;
    const int top = (room.top + room.bottom - size.cy) / 2;
    // What fits needs no clipping, which costs as much as the text itself.
    UINT flags = size.cy > room.bottom - room.top ? ETO_CLIPPED : 0u;
    flags |= UseRightToLeftReading() ? ETO_RTLREADING : 0u;
    ExtTextOutW(dc, left, top, flags, &room, WideChars(text), static_cast<UINT>(length), nullptr);
    return true;
}

// Drawing by the program

const TClassInfo& TCustomVirtualDrawTree::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TCustomVirtualDrawTree>(u"TCustomVirtualDrawTree", TBaseVirtualTree::StaticClass());
    return info;
}

const TClassInfo& TVirtualDrawTree::StaticClass() {
    using D = TCustomVirtualDrawTree;
    static const TClassInfo info = DescribeClass<TVirtualDrawTree>(u"TVirtualDrawTree", D::StaticClass(),
                                                                   {treerows::Properties(), treerows::Events(),
                                                                    Event<&D::OnDrawNode>(u"OnDrawNode"),
                                                                    Event<&D::OnGetNodeWidth>(u"OnGetNodeWidth")});
    return info;
}

void TCustomVirtualDrawTree::DoPaintNode(TVTPaintInfo& info) {
    if (!OnDrawNode)
        return;
    const HDC dc = info.Canvas->GetHandle();
    const TSavedDC saved(dc);
    IntersectClipRect(dc, info.CellRect.Left, info.CellRect.Top, info.CellRect.Right, info.CellRect.Bottom);
    Fire(*this, OnDrawNode, this, info);
}

int TCustomVirtualDrawTree::DoGetNodeWidth(TVirtualNode* node, TColumnIndex column) {
    int width = 0;
    if (OnGetNodeWidth) {
        const TWindowDC screen(nullptr);
        const auto canvas = std::make_shared<TCanvas>();
        const TCanvasBinding bound(canvas, screen);
        canvas->SetFont(GetFont());
        Fire(*this, OnGetNodeWidth, this, canvas.get(), node, column, width);
    }
    return width;
}

void RegisterVirtualTrees() {
    RegisterClasses({&TVirtualStringTree::StaticClass(), &TVirtualDrawTree::StaticClass()});
}

} // namespace framework
