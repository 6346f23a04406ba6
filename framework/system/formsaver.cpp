#include "framework/system/formsaver.h"

#include "framework/system/collections.h"
#include "framework/system/formvalues.h"
#include "framework/system/waitingreferences.h"

#include <algorithm>

namespace framework {

namespace {

/// The place that a designer gives a component without one of its own stands behind all other properties.
bool IsDesignPlace(const TPropInfo& row) {
    for (const char16_t* name : {u"Left", u"Top"}) {
        if (row.Name == name && row.GetOrdinal == TComponent::StaticClass().FindProperty(name)->GetOrdinal)
            return true;
    }
    return false;
}

bool IsInherited(const TComponent* component) {
    return component->GetComponentState().Contains(csAncestor);
}

/// Whether the inherited children no longer stand in the order in which their owner got them.
bool HaveMoved(const std::vector<TComponent*>& children, const TComponent& owner) {
    int next = 0;
    for (const TComponent* child : children) {
        if (!IsInherited(child))
            continue;
        while (next < owner.GetComponentCount() && owner.GetComponent(next) != child)
            ++next;
        if (next == owner.GetComponentCount())
            return true;
    }
    return false;
}

} // namespace

/// Writes one root. As in the loader, nesting is kept in frames of its own.
class TFormSaver {
public:
    explicit TFormSaver(TComponent& root);
    ~TFormSaver();

    TFormDocument Save();

private:
    /// An object, sub-object, collection or item whose writing has begun.
    struct TFrame {
        const TPersistent* Target = nullptr;
        const TPersistent* Holder = nullptr;     ///< of a sub-object: the component or item that it belongs to
        TComponent* Component = nullptr;         ///< an object of the form
        const TCollection* Collection = nullptr; ///< a collection
        bool IsItem = false;
        TComponent* Scope = nullptr;
        String Prefix; ///< of a sub-object's properties, as in `Font.`
        std::vector<const TPropInfo*> Rows;
        std::size_t NextRow = 0;
        std::vector<TComponent*> Children;
        std::size_t NextChild = 0;
        std::size_t InheritedUpTo = 0; ///< behind the last child that is inherited
        bool InheritedMoved = false;
        int NextItem = 0;
    };

    void Step();
    void OpenObject(TComponent& component, TComponent& scope, std::optional<std::int32_t> position);
    void OpenChild();
    void OpenItem();
    void CloseFrame();

    void FindStoredRows(TFrame& frame) const;
    const String* WaitingFor(const TFrame& frame, const TPropInfo& row) const;
    void WriteRow(const TPropInfo& row);
    void WriteObjectRow(const TPropInfo& row, const String& name);
    bool IsOpen(const TPersistent* object) const;
    String PathTo(const TComponent& component, const TPropInfo& row) const;
    String MethodPath(const TPropInfo& row) const;

    /// A reference into a form that is not there.
    struct TWaiting {
        const TPersistent* Holder;
        String Property; ///< the path from there
        String Wanted;
    };

    TComponent& FRoot;
    TFormBuilder FBuilder;
    std::vector<TFrame> FFrames;
    std::vector<TWaiting> FWaiting;
};

TFormDocument SaveTextForm(TComponent& root) {
    return TFormSaver(root).Save();
}

TFormSaver::TFormSaver(TComponent& root) : FRoot(root) {
    TWaitingReferences::Current().ForEach([this](const TWaitingReference& each) {
        FWaiting.push_back({each.Reference.Target, each.Reference.Property, each.Reference.Wanted});
    });
}

TFormSaver::~TFormSaver() {
    for (TFrame& frame : FFrames) {
        if (frame.Component)
            frame.Component->ChangeState(csWriting, false);
    }
}

TFormDocument TFormSaver::Save() {
    OpenObject(FRoot, FRoot, std::nullopt);
    while (!FFrames.empty())
        Step();
    return FBuilder.Finish();
}

void TFormSaver::Step() {
    TFrame& frame = FFrames.back();
    if (frame.NextRow < frame.Rows.size())
        WriteRow(*frame.Rows[frame.NextRow++]);
    else if (frame.NextChild < frame.Children.size())
        OpenChild();
    else if (frame.Collection && frame.NextItem < frame.Collection->GetCount())
        OpenItem();
    else
        CloseFrame();
}

// Objects and items

void TFormSaver::OpenObject(TComponent& component, TComponent& scope, std::optional<std::int32_t> position) {
    const TComponentState state = component.GetComponentState();
    const TFormObjectKind kind = state.Contains(csAncestor) ? TFormObjectKind::Inherited
                                 : state.Contains(csInline) ? TFormObjectKind::Inline
                                                            : TFormObjectKind::Object;
    FBuilder.BeginObject(kind, component.GetName(), component.ClassName(), position);
    component.ChangeState(csWriting, true);
    TFrame& frame = FFrames.emplace_back();
    frame.Target = frame.Holder = &component;
    frame.Component = &component;
    frame.Scope = state.Contains(csInline) ? &component : &scope;
    FindStoredRows(frame);
    frame.Children = component.GetChildren(frame.Scope);
    std::erase_if(frame.Children, [](const TComponent* child) {
        return child->GetComponentStyle().Contains(csSubComponent); // written where it belongs
    });
    const auto last = std::find_if(frame.Children.rbegin(), frame.Children.rend(), IsInherited);
    frame.InheritedUpTo = static_cast<std::size_t>(frame.Children.rend() - last);
    frame.InheritedMoved = frame.InheritedUpTo != 0 && HaveMoved(frame.Children, *frame.Scope);
}

void TFormSaver::OpenChild() {
    TFrame& frame = FFrames.back();
    const std::size_t index = frame.NextChild++;
    TComponent& child = *frame.Children[index];
    // Otherwise a new child would come behind the inherited ones, and these would stand as they were made.
    const bool isPlaced = index < frame.InheritedUpTo && (frame.InheritedMoved || !IsInherited(&child));
    OpenObject(child, *frame.Scope, isPlaced ? std::optional(static_cast<std::int32_t>(index)) : std::nullopt);
}

void TFormSaver::OpenItem() {
    TFrame item;
    item.Target = item.Holder = FFrames.back().Collection->GetItem(FFrames.back().NextItem++);
    item.IsItem = true;
    item.Scope = FFrames.back().Scope;
    FindStoredRows(item);
    FBuilder.BeginItem();
    FFrames.push_back(std::move(item));
}

void TFormSaver::CloseFrame() {
    TFrame& frame = FFrames.back();
    if (frame.Component) {
        FBuilder.EndObject();
        frame.Component->ChangeState(csWriting, false);
    } else if (frame.Collection) {
        FBuilder.EndCollection();
    } else if (frame.IsItem) {
        FBuilder.EndItem();
    }
    FFrames.pop_back();
}

// Properties

/// The rows that are stored, in the order in which a form has them.
void TFormSaver::FindStoredRows(TFrame& frame) const {
    for (const TPropInfo& row : frame.Target->ClassInfo().Properties()) {
        if (IsStoredProp(*frame.Target, row) || WaitingFor(frame, row))
            frame.Rows.push_back(&row);
    }
    std::stable_partition(frame.Rows.begin(), frame.Rows.end(),
                          [](const TPropInfo* row) { return !IsDesignPlace(*row); });
}

/// What an empty reference will lead to when its form has come; null when it waits for none.
const String* TFormSaver::WaitingFor(const TFrame& frame, const TPropInfo& row) const {
    if (FWaiting.empty() || row.Kind != tkClass || row.GetInstance(*frame.Target))
        return nullptr;
    const auto waiting = std::find_if(FWaiting.begin(), FWaiting.end(), [&](const TWaiting& each) {
        return each.Holder == frame.Holder && TNameEqual()(each.Property, frame.Prefix + row.Name);
    });
    return waiting == FWaiting.end() ? nullptr : &waiting->Wanted;
}

void TFormSaver::WriteRow(const TPropInfo& row) {
    const TFrame& frame = FFrames.back();
    const String name = frame.Prefix + row.Name;
    switch (row.Kind) {
    case tkClass:
        WriteObjectRow(row, name);
        break;
    case tkMethod:
        FBuilder.Property(name);
        FBuilder.Identifier(row.GetMethod(*frame.Target) ? MethodPath(row) : u"nil");
        break;
    default:
        FBuilder.Property(name);
        WriteFormValue(FBuilder, *frame.Target, row);
    }
}

void TFormSaver::WriteObjectRow(const TPropInfo& row, const String& name) {
    const TFrame& outer = FFrames.back();
    TPersistent* instance = row.GetInstance(*outer.Target);
    if (!IsSubObject(*outer.Target, row)) {
        const String* waiting = WaitingFor(outer, row);
        FBuilder.Property(name);
        FBuilder.Identifier(instance ? PathTo(*As<TComponent>(instance), row) : waiting ? *waiting : u"nil");
        return;
    }
    if (IsOpen(instance))
        return; // a way back to what holds it
    TFrame frame;
    frame.Target = instance;
    frame.Holder = outer.Holder;
    frame.Scope = outer.Scope;
    frame.Collection = As<TCollection>(instance);
    if (frame.Collection) {
        FBuilder.Property(name);
        FBuilder.BeginCollection();
    } else {
        frame.Prefix = name + u".";
        FindStoredRows(frame);
    }
    FFrames.push_back(std::move(frame));
}

bool TFormSaver::IsOpen(const TPersistent* object) const {
    for (auto frame = FFrames.rbegin(); frame != FFrames.rend(); ++frame) {
        if (frame->Target == object)
            return true;
        if (frame->Component)
            break;
    }
    return false;
}

/// How the loader finds the component from here: its name, below the inline frame that owns it, or below another root.
String TFormSaver::PathTo(const TComponent& component, const TPropInfo& row) const {
    const TFrame& frame = FFrames.back();
    String path;
    for (const TComponent* each = &component;;) {
        if (each->GetName().empty())
            throw EComponentError(frame.Target->GetNamePath() + u"." + row.Name + u" refers to a " +
                                  component.ClassName() + u" that no name leads to");
        path = each->GetName() + (path.empty() ? u"" : u".") + path;
        const TComponent* owner = each->GetOwnerComponent();
        if (each == &FRoot || owner == &FRoot || owner == frame.Scope)
            return path;
        // Roots that stand beside ours are found by name; what owns them all has none.
        if (!owner || owner == FRoot.GetOwnerComponent() || owner->GetName().empty())
            return path;
        each = owner;
    }
}

String TFormSaver::MethodPath(const TPropInfo& row) const {
    const TFrame& frame = FFrames.back();
    const String& method = row.GetMethod(*frame.Target)->Name;
    const TObject* instance = row.GetMethodInstance(*frame.Target);
    if (instance == &FRoot || (instance == frame.Scope && !FRoot.ClassInfo().FindMethod(method)))
        return method;
    const auto* component = As<TComponent>(instance);
    if (!component)
        throw EComponentError(frame.Target->GetNamePath() + u"." + row.Name + u" calls a method of a " +
                              instance->ClassName() + u", which is no component");
    return PathTo(*component, row) + u"." + method;
}

} // namespace framework
