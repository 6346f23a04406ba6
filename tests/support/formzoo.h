#pragma once

// Portable classes with everything that a text form can set: what loader and saver are tried on without a window.

#include "framework/system/collections.h"
#include "framework/system/components.h"
#include "framework/system/exceptions.h"
#include "framework/system/formloader.h"
#include "framework/system/identifiers.h"
#include "framework/system/stringlist.h"
#include "framework/system/strings.h"

namespace testsupport {

using namespace framework;

enum TZooMode { zmPlain, zmWarm, zmCold };
using TZooModes = Set<TZooMode>;

inline const TEnumInfo& DescribeEnum(TZooMode) {
    static const TEnumInfo info{u"TZooMode", {u"zmPlain", u"zmWarm", u"zmCold"}};
    return info;
}

inline constexpr TIdentifier zooColors[] = {{0xFF, u"clRed"}, {0, u"clBlack"}, {-16777201, u"clBtnFace"}};

class TZooFont : public TPersistent {
    FRAMEWORK_CLASS(TZooFont)

public:
    String FName;
    std::int8_t FSize = 8;
    std::int32_t FColor = 0;
};

inline const TClassInfo& TZooFont::StaticClass() {
    static const TClassInfo info = DescribeClass<TZooFont>(
        u"TZooFont", TPersistent::StaticClass(),
        {Property<&TZooFont::FColor, &TZooFont::FColor>(u"Color", 0).Named(IdentifiersOf<zooColors>()),
         Property<&TZooFont::FName, &TZooFont::FName>(u"Name"),
         Property<&TZooFont::FSize, &TZooFont::FSize>(u"Size", 8)});
    return info;
}

class TZooBox;

/// An item that holds items, and may take itself and all others away.
class TZooItem : public TCollectionItem {
    FRAMEWORK_CLASS(TZooItem)

public:
    explicit TZooItem(TCollection* collection) : TCollectionItem(collection) {}

    void SetTitle(const String& value) {
        FTitle = value;
        Changed(false);
    }
    bool GetKill() const { return false; }
    void SetKill(bool value) {
        if (value)
            GetCollection()->Clear();
    }

    String FTitle;
    int FWidth = 10;
    TZooBox* FLink = nullptr;
    TZooFont FFontStore;
    TZooFont* GetFont() { return &FFontStore; }
    void SetLink(TZooBox* value);
    std::unique_ptr<TOwnedCollection> FParts = std::make_unique<TOwnedCollection>(this, ItemsOf<TZooItem>());
};

/// A component of the tree that a form makes: boxes stand in boxes.
class TZooBox : public TComponent {
    FRAMEWORK_CLASS(TZooBox)

public:
    explicit TZooBox(TComponent* owner);
    ~TZooBox() override;

    const String& GetCaption() const { return FCaption; }
    void SetCaption(const String& value) {
        if (value == u"boom")
            throw EInvalidOperation(u"the caption explodes");
        FCaption = value;
        Changed();
    }
    String GetKill() const { return {}; }
    /// Frees the component of this name among the owner's, or this one.
    void SetKill(const String& value) {
        TComponent* victim = value == u"self"      ? this
                             : GetOwnerComponent() ? GetOwnerComponent()->FindComponent(value)
                                                   : nullptr;
        delete victim;
    }
    void SetPeer(TZooBox* value) {
        FPeer = value;
        if (value)
            value->FreeNotification(this);
    }
    TZooBox* GetPeer() const { return FPeer; }
    TZooBox* GetLabel() const { return FLabel; }
    int GetArea() const { return FWidth * FWidth; }
    bool GetHasLabel() const { return FLabel != nullptr; }
    void SetHasLabel(bool value);

    TComponent* GetParentComponent() const override { return FParent; }
    void SetParentComponent(TComponent* parent) override;
    void SetChildOrder(TComponent* child, int order) override;
    std::vector<TComponent*> GetChildren(TComponent* root) const override;

    static inline std::vector<String> log; ///< what was called, in order
    static inline int living = 0;

    int FLeft = 0;
    int FTop = 0;
    int FWidth = 50;
    TZooMode FMode = zmPlain;
    TZooModes FModes;
    bool FVisible = true;
    double FRatio = 0;
    Currency FPrice;
    Variant FData;
    char16_t FMark = 0;
    TBytes FPicture;
    std::unique_ptr<TZooFont> FFont = std::make_unique<TZooFont>();
    std::unique_ptr<TStringList> FItems = std::make_unique<TStringList>();
    std::unique_ptr<TOwnedCollection> FColumns = std::make_unique<TOwnedCollection>(this, ItemsOf<TZooItem>());
    TNotifyEvent OnClick;
    TNotifyEvent OnLoaded;
    std::function<void(TObject* Sender, int& Size)> OnMeasure;

protected:
    void Notification(TComponent* component, TOperation operation) override {
        TComponent::Notification(component, operation);
        if (operation != opRemove)
            return;
        if (component == FPeer)
            FPeer = nullptr;
        if (component == FLabel)
            FLabel = nullptr;
        if (FColumns) // gone already when this box dies itself
            ForgetLinks(*FColumns, component);
    }
    void Updating() override { log.push_back(u"updating " + ClassName()); }
    void Loaded() override {
        TComponent::Loaded();
        log.push_back(u"loaded " + GetName());
        Fire(*this, OnLoaded, this);
    }

private:
    void Changed() { Fire(*this, OnClick, this); }
    static void ForgetLinks(const TCollection& items, const TComponent* component);

    String FCaption;
    TZooBox* FParent = nullptr;
    TZooBox* FPeer = nullptr;
    std::vector<TZooBox*> FBoxes;
    TZooBox* FLabel = nullptr;
};

inline const TClassInfo& TZooItem::StaticClass() {
    static const TClassInfo info = DescribeClass<TZooItem>(
        u"TZooItem", TCollectionItem::StaticClass(),
        {Property<&TZooItem::FTitle, &TZooItem::SetTitle>(u"Title"),
         Property<&TZooItem::FWidth, &TZooItem::FWidth>(u"Width", 10),
         Property<&TZooItem::FLink, &TZooItem::SetLink>(u"Link"), Property<&TZooItem::GetFont>(u"Font"),
         Property<&TZooItem::FParts>(u"Parts"), Property<&TZooItem::GetKill, &TZooItem::SetKill>(u"Kill", false)});
    return info;
}

inline const TClassInfo& TZooBox::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TZooBox>(u"TZooBox", TComponent::StaticClass(),
                               {Property<&TZooBox::FLeft, &TZooBox::FLeft>(u"Left"),
                                Property<&TZooBox::FTop, &TZooBox::FTop>(u"Top"),
                                Property<&TZooBox::FWidth, &TZooBox::FWidth>(u"Width", 50),
                                Property<&TZooBox::GetArea>(u"Area"),
                                Property<&TZooBox::GetHasLabel, &TZooBox::SetHasLabel>(u"HasLabel", false),
                                Property<&TZooBox::GetCaption, &TZooBox::SetCaption>(u"Caption"),
                                Property<&TZooBox::FMode, &TZooBox::FMode>(u"Mode", zmPlain),
                                Property<&TZooBox::FModes, &TZooBox::FModes>(u"Modes", {}),
                                Property<&TZooBox::FVisible, &TZooBox::FVisible>(u"Visible", true),
                                Property<&TZooBox::FRatio, &TZooBox::FRatio>(u"Ratio"),
                                Property<&TZooBox::FPrice, &TZooBox::FPrice>(u"Price"),
                                Property<&TZooBox::FData, &TZooBox::FData>(u"Data"),
                                Property<&TZooBox::FMark, &TZooBox::FMark>(u"Mark", u'\0'),
                                Property<&TZooBox::FPicture, &TZooBox::FPicture>(u"Picture"),
                                Property<&TZooBox::FFont>(u"Font"),
                                Property<&TZooBox::FItems>(u"Items"),
                                Property<&TZooBox::FColumns>(u"Columns"),
                                Property<&TZooBox::GetLabel>(u"BoundLabel"),
                                Property<&TZooBox::GetPeer, &TZooBox::SetPeer>(u"Peer"),
                                Property<&TZooBox::GetKill, &TZooBox::SetKill>(u"Kill"),
                                Event<&TZooBox::OnClick>(u"OnClick"),
                                Event<&TZooBox::OnLoaded>(u"OnLoaded"),
                                Event<&TZooBox::OnMeasure>(u"OnMeasure")});
    return info;
}

inline TZooBox::TZooBox(TComponent* owner) : TComponent(owner) {
    ++living;
}

inline TZooBox::~TZooBox() {
    Destroying();
    SetParentComponent(nullptr);
    FColumns.reset();
    for (TZooBox* box : FBoxes)
        box->FParent = nullptr;
    --living;
}

inline void TZooBox::SetHasLabel(bool value) {
    if (value == GetHasLabel())
        return;
    if (!value) {
        delete FLabel;
        return;
    }
    FLabel = new TZooBox(this);
    FLabel->SetSubComponent(true);
}

inline void TZooBox::ForgetLinks(const TCollection& items, const TComponent* component) {
    for (int i = 0; i < items.GetCount(); ++i) {
        auto* item = static_cast<TZooItem*>(items.GetItem(i));
        if (item->FLink == component)
            item->FLink = nullptr;
        ForgetLinks(*item->FParts, component);
    }
}

inline void TZooItem::SetLink(TZooBox* value) {
    FLink = value;
    TPersistent* holder = GetOwner();
    while (holder && !As<TZooBox>(holder))
        holder = holder->GetOwner();
    if (holder && value)
        value->FreeNotification(static_cast<TZooBox*>(holder));
}

inline void TZooBox::SetParentComponent(TComponent* parent) {
    if (FParent)
        std::erase(FParent->FBoxes, this);
    FParent = As<TZooBox>(parent);
    if (FParent)
        FParent->FBoxes.push_back(this);
}

inline void TZooBox::SetChildOrder(TComponent* child, int order) {
    if (std::erase(FBoxes, child) == 0)
        return;
    const auto place = std::min(static_cast<std::size_t>(std::max(order, 0)), FBoxes.size());
    FBoxes.insert(FBoxes.begin() + static_cast<std::ptrdiff_t>(place), static_cast<TZooBox*>(child));
}

inline std::vector<TComponent*> TZooBox::GetChildren(TComponent* root) const {
    std::vector<TComponent*> children;
    for (TZooBox* box : FBoxes) {
        if (box->GetOwner() == root)
            children.push_back(box);
    }
    for (TComponent* component : TComponent::GetChildren(root))
        children.push_back(component);
    return children;
}

/// A component without a place of its own.
class TZooTimer : public TComponent {
    FRAMEWORK_CLASS(TZooTimer)

public:
    explicit TZooTimer(TComponent* owner) : TComponent(owner) {}

    int FInterval = 1000;
    TNotifyEvent OnTimer;
};

inline const TClassInfo& TZooTimer::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TZooTimer>(u"TZooTimer", TComponent::StaticClass(),
                                 {Property<&TZooTimer::FInterval, &TZooTimer::FInterval>(u"Interval", 1000),
                                  Event<&TZooTimer::OnTimer>(u"OnTimer")});
    return info;
}

class TZooForm : public TZooBox {
    FRAMEWORK_CLASS(TZooForm)

public:
    explicit TZooForm(TComponent* owner) : TZooBox(owner) {}

    void BoxClick(TObject* sender) { log.push_back(u"click " + static_cast<TComponent*>(sender)->GetName()); }
    void BoxMeasure(TObject*, int& size) { size *= 2; }
    /// Frees the component that the tag of the sender numbers, if there is one.
    void BoxKills(TObject* sender) {
        const auto index = static_cast<int>(static_cast<TComponent*>(sender)->GetTag());
        if (index >= 0 && index < GetComponentCount())
            delete GetComponent(index);
    }
};

inline const TClassInfo& TZooForm::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TZooForm>(u"TZooForm", TZooBox::StaticClass(), {},
                                {Method<&TZooForm::BoxClick>(u"BoxClick"), Method<&TZooForm::BoxMeasure>(u"BoxMeasure"),
                                 Method<&TZooForm::BoxKills>(u"BoxKills")});
    return info;
}

/// A frame that reads a form of its own in its constructor.
class TZooFrame : public TZooForm {
    FRAMEWORK_CLASS(TZooFrame)

public:
    explicit TZooFrame(TComponent* owner) : TZooForm(owner) {
        LoadTextForm(*this, ParseTextForm("object Frame: TZooFrame\n"
                                          "  Width = 70\n"
                                          "  object First: TZooBox\n"
                                          "    Caption = 'first'\n"
                                          "    OnClick = FrameClick\n"
                                          "  end\n"
                                          "  object Second: TZooBox\n"
                                          "    Peer = First\n"
                                          "  end\n"
                                          "end\n"));
    }
    void FrameClick(TObject*) { log.push_back(u"frame " + GetName()); }
};

inline const TClassInfo& TZooFrame::StaticClass() {
    static const TClassInfo info = DescribeClass<TZooFrame>(u"TZooFrame", TZooForm::StaticClass(), {},
                                                            {Method<&TZooFrame::FrameClick>(u"FrameClick")});
    return info;
}

inline void RegisterZoo() {
    RegisterClasses(
        {&TZooBox::StaticClass(), &TZooTimer::StaticClass(), &TZooForm::StaticClass(), &TZooFrame::StaticClass()});
}

} // namespace testsupport
