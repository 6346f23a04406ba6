#include "foundation/Zorboundlabel.h"

namespace ZOR {

const TEnumInfo& DescribeEnum(TCaptionLayout) {
    static const TEnumInfo info{u"TCaptionLayout", {CaptionLayoutNames.begin(), CaptionLayoutNames.end()}};
    return info;
}

const TClassInfo& TZORBoundLabel::StaticClass() {
    static const TClassInfo info = DescribeClass<TZORBoundLabel>(
        u"TZORBoundLabel", TPersistent::StaticClass(),
        {Property<&TZORBoundLabel::GetActive, &TZORBoundLabel::SetActive>(u"Active", false),
         Property<&TZORBoundLabel::GetAllowClick, &TZORBoundLabel::SetAllowClick>(u"AllowClick", false),
         Property<&TZORBoundLabel::GetText, &TZORBoundLabel::SetText>(u"Caption"),
         Property<&TZORBoundLabel::GetEnabledAlways, &TZORBoundLabel::SetEnabledAlways>(u"EnabledAlways", false),
         Property<&TZORBoundLabel::GetIndent, &TZORBoundLabel::SetIndent>(u"Indent", DefaultLabelIndent),
         Property<&TZORBoundLabel::GetFont, &TZORBoundLabel::SetFont>(u"Font")
             .StoredWhen<&TZORBoundLabel::DoStoreFont>(),
         Property<&TZORBoundLabel::GetLayout, &TZORBoundLabel::SetLayout>(u"Layout", DefaultCaptionLayout),
         Property<&TZORBoundLabel::GetMaxWidth, &TZORBoundLabel::SetMaxWidth>(u"MaxWidth", 0)});
    return info;
}

namespace {

// A host may change the font of the label itself; text of another size needs another place.
class TCaptionLabel : public TLabel {
public:
    explicit TCaptionLabel(TZORBoundLabel& caption) : TLabel(nullptr), FCaption(caption) {}

    void ChangeScale(int, int) override {} // the control scales its caption

protected:
    void CMFontChanged(TMessage& message) override {
        TLifeGuard alive(*this);
        TLabel::CMFontChanged(message);
        if (alive)
            FCaption.AlignLabel();
    }

private:
    TZORBoundLabel& FCaption;
};

} // namespace

TZORBoundLabel::TZORBoundLabel(TWinControl* control) : FControl(control), FFont(std::make_unique<TFont>()) {
}

TZORBoundLabel::~TZORBoundLabel() = default;

void TZORBoundLabel::SetActive(bool value) {
    if (FActive == value)
        return;
    FActive = value;
    TLifeGuard alive(*FControl);
    if (value)
        CreateLabel();
    else
        FLabel.reset();
    if (alive)
        SetAllowClick(FAllowClick);
}

void TZORBoundLabel::CreateLabel() {
    TLifeGuard alive(*FControl);
    if (!FLabel)
        FLabel = std::make_unique<TCaptionLabel>(*this);
    FLabel->SetVisible(false);
    FLabel->SetAutoSize(false); // until it has its text: each step on the way would measure it
    FLabel->SetWordWrap(true);
    if (FControl->GetParent())
        FLabel->SetParent(FControl->GetParent());
    if (!alive || !FLabel)
        return; // the parent's layout moved others, whose handlers took the control or the label away
    if (!FControl->GetParentBiDiMode()) // otherwise both follow the parent
        FLabel->SetBiDiMode(FControl->GetBiDiMode());
    FLabel->SetFocusControl(FControl);
    FLabel->GetFont()->Assign(FFont.get());
    UpdateAlignment();
    const String name = FControl->GetName() + u"_Label";
    FLabel->SetName(name);
    if (FCaption.empty())
        FCaption = name;
    FLabel->SetText(FCaption);
    FLabel->SetEnabled(LabelEnabled());
    FLabel->SetAutoSize(true);
    FLabel->SetVisible(FControl->GetVisible() || FLabel->GetComponentState().Contains(csDesigning));
    if (alive)
        AlignLabel();
}

void TZORBoundLabel::SetAllowClick(bool value) {
    FAllowClick = value;
    if (!FLabel)
        return;
    const TNotifyEvent handler = value ? TNotifyEvent([this](TObject* sender) { DoClick(sender); }) : TNotifyEvent();
    FLabel->OnClick = handler;
    FLabel->OnDblClick = handler;
}

void TZORBoundLabel::DoClick(TObject*) {
    if (FControl && !FControl->GetComponentState().Contains(csDesigning))
        FControl->Click();
}

void TZORBoundLabel::SetText(const String& value) {
    if (FCaption == value)
        return;
    FCaption = value;
    if (!FActive)
        return;
    TLifeGuard alive(*FControl);
    FLabel->SetText(value);
    if (alive)
        AlignLabel();
}

void TZORBoundLabel::SetEnabledAlways(bool value) {
    if (FEnabledAlways == value)
        return;
    FEnabledAlways = value;
    if (FActive)
        AlignLabel();
}

void TZORBoundLabel::SetIndent(int value) {
    if (FIndent == value)
        return;
    FIndent = value;
    if (FActive)
        AlignLabel();
}

void TZORBoundLabel::SetMaxWidth(int value) {
    if (FMaxWidth == value)
        return;
    FMaxWidth = value;
    if (FActive)
        AlignLabel();
}

void TZORBoundLabel::SetLayout(TCaptionLayout value) {
    if (FLayout == value)
        return;
    FLayout = value;
    UpdateAlignment();
    if (FActive)
        AlignLabel();
}

TFont* TZORBoundLabel::GetFont() const {
    return FLabel ? FLabel->GetFont() : FFont.get();
}

void TZORBoundLabel::SetFont(TFont* value) {
    FFont->Assign(value);
    TLifeGuard alive(*FControl);
    if (FLabel)
        FLabel->GetFont()->Assign(value);
    if (alive)
        FollowParent();
    if (alive)
        AlignLabel();
}

bool TZORBoundLabel::DoStoreFont() const {
    const TFont usual;
    const TFont& font = *GetFont();
    return font.GetColor() != usual.GetColor() || font.GetSize() != usual.GetSize() ||
           font.GetOrientation() != usual.GetOrientation() || font.GetStyle() != usual.GetStyle() ||
           font.GetPitch() != usual.GetPitch() || font.GetName() != usual.GetName();
}

void TZORBoundLabel::ChangeScale(int m, int d) {
    FIndent = MulDiv(FIndent, m, d);
    FMaxWidth = MulDiv(FMaxWidth, m, d);
    if (FControl->GetComponentState().Contains(csLoading) && !DoStoreFont())
        return;
    FFont->SetHeight(MulDiv(FFont->GetHeight(), m, d));
    if (FLabel)
        FLabel->GetFont()->SetHeight(MulDiv(FLabel->GetFont()->GetHeight(), m, d));
}

void TZORBoundLabel::UpdateAlignment() {
    if (FLabel)
        FLabel->SetAlignment(LabelAlignment(FLayout));
}

void TZORBoundLabel::FollowParent() {
    if (FLabel)
        FLabel->SetParent(FControl->GetParent());
}

void TZORBoundLabel::AlignLabel() {
    if (!FLabel || !FLabel->GetVisible() || FControl->GetComponentState().Contains(csLoading))
        return; // a control that is being loaded aligns its label when all is known
    if (TWinControl* parent = FLabel->GetParent())
        parent->WithoutAlign([this] { PlaceLabel(); });
    else
        PlaceLabel();
}

void TZORBoundLabel::PlaceLabel() {
    TLifeGuard alive(*FControl);
    const auto stays = [&] { return alive && FLabel; }; // each step may lay out the parent, which handlers hear of
    FLabel->GetConstraints()->SetMaxWidth(FMaxWidth);
    if (stays())
        FLabel->SetWordWrap(true);
    if (stays())
        FLabel->SetEnabled(LabelEnabled());
    if (stays())
        FLabel->SetAlign(FLayout == clLeft && FControl->GetAlign() == alLeft ? alLeft : alNone);
    if (!stays())
        return;
    // One step from the measured text to the final place: each bounds change on the way would repaint the parent.
    const TSizeConstraints& limits = *FLabel->GetConstraints();
    const TRect text = FLabel->GetTextRect({0, 0, LabelWrapWidth(FMaxWidth), 0});
    // A word that is wider than the limit is cut off, so it is the limit that the place counts with.
    const TSize size{ConstrainedExtent(text.Width(), limits.GetMinWidth(), limits.GetMaxWidth()),
                     ConstrainedExtent(text.Height(), limits.GetMinHeight(), limits.GetMaxHeight())};
    const TPoint place = LabelPlace(FControl->GetBoundsRect(), size, FIndent, FLayout);
    FLabel->SetBounds(place.X, place.Y, size.Width, size.Height);
    if (alive)
        FollowParent();
}

void TZORBoundLabel::HandleOwnerMsg(TZORBoundLabel* label, const TMessage& msg, TControl* control) {
    TLabel* shown = label ? label->GetLabel() : nullptr;
    if (!shown)
        return;
    TLifeGuard alive(*control);
    switch (msg.Msg) {
    case WM_SIZE:
    case WM_WINDOWPOSCHANGED:
        break;
    case CM_VISIBLECHANGED:
        shown->SetVisible(control->GetVisible());
        break;
    case CM_ENABLEDCHANGED:
        shown->SetEnabled(label->LabelEnabled());
        break;
    case CM_BIDIMODECHANGED:
        shown->SetBiDiMode(control->GetBiDiMode());
        break;
    default:
        return;
    }
    if (alive)
        label->AlignLabel();
}

} // namespace ZOR
