#include "framework/system/formloader.h"

#include "framework/system/collections.h"
#include "framework/system/formloader_core.h"
#include "framework/system/numbers.h"

#include <ranges>

namespace framework {

namespace {

String Subject(StringView object, StringView property) {
    String subject(object);
    if (!property.empty())
        subject.append(u".").append(property);
    return subject;
}

TFormPlace PlaceOf(const TFormObject& source) {
    return {source.Line(), source.Column()};
}

/// How messages call an object: by its name, or by its class when it has none.
String NameOf(const TFormObject& source) {
    return String(source.Name().empty() ? source.ClassName() : source.Name());
}

/// The form's name for its root; with a number behind it when a sibling has it.
String RootName(const TComponent& root, StringView wanted) {
    const auto* owner = As<TComponent>(root.GetOwner());
    String name(wanted);
    for (int number = 1; owner; ++number) {
        const TComponent* holder = owner->FindComponent(name);
        if (!holder || holder == &root)
            break;
        name = String(wanted) + u"_" + IntToStr(number);
    }
    return name;
}

} // namespace

EFormLoad::EFormLoad(StringView fileName, std::uint32_t line, std::uint32_t column, StringView object,
                     StringView property, StringView problem)
    : EFormError(fileName, line, column, Subject(object, property) + u": " + String(problem)), FObject(object),
      FProperty(property) {
}

void LoadTextForm(TComponent& root, const TFormDocument& document, const TLoadOptions& options) {
    TFormLoader(document, options).Load(root);
}

std::unique_ptr<TComponent> CreateFromTextForm(const TFormDocument& document, TComponent* owner,
                                               const TLoadOptions& options) {
    return TFormLoader(document, options).Create(owner);
}

std::unique_ptr<TComponent> CreateFromTextForm(std::string_view bytes, TComponent* owner, const TLoadOptions& options) {
    TParseOptions parsing;
    parsing.FileName = options.FileName;
    parsing.FallbackEncoding = options.FallbackEncoding;
    return CreateFromTextForm(ParseTextForm(bytes, parsing), owner, options);
}

std::unique_ptr<TComponent> CreateForm(const TClassInfo& info, TComponent* owner) {
    const TFormDocument none;
    const TLoadOptions options;
    return TFormLoader(none, options).Construct(info, owner);
}

TFormLoader::TFormLoader(const TFormDocument& document, const TLoadOptions& options)
    : FDocument(document), FOptions(options),
      FFileName(options.FileName.empty() ? document.FileName() : options.FileName) {
    const bool skips = options.SkipUnknownProperties || options.SkipUnknownClasses || options.SkipUnknownReferences;
    if (skips && !options.OnSkipped)
        throw EInvalidOperation(u"Nobody would hear of what the loading of a form skips");
}

// Messages

void TFormLoader::At(TFormPlace place, StringView property, String object) {
    FPlace = place;
    FProperty = property;
    FObject = std::move(object);
}

void TFormLoader::At(const TLoadedComponent& entry) {
    FFileName = entry.File;
    At(entry.Place, {}, entry.Name);
}

String TFormLoader::ObjectPath() const {
    if (!FObject.empty())
        return FObject;
    // The innermost object, then the collections and items that are open inside it.
    auto frame = FFrames.end();
    while (frame != FFrames.begin() && !(--frame)->IsObject()) {
    }
    String path;
    for (; frame != FFrames.end(); ++frame)
        path += frame->Name;
    return path;
}

EFormLoad TFormLoader::Error(StringView problem) const {
    return {FFileName, FPlace.Line, FPlace.Column, ObjectPath(), FProperty, problem};
}

/// The message of a property's refusal without the class and property at its beginning: ours names the object instead.
StringView TFormLoader::WithoutSubject(const String& message) const {
    if (!FTargetProperty)
        return message;
    const String subject = FTargetClass->Name() + u"." + FTargetProperty->Name + u": ";
    return StringView(message).substr(message.starts_with(subject) ? subject.size() : 0);
}

void TFormLoader::Skip(StringView problem, StringView className) {
    FOptions.OnSkipped(
        {ObjectPath(), String(className), String(FProperty), String(problem), FPlace.Line, FPlace.Column});
}

// The course of a load

template <class TBody>
void TFormLoader::RunIn(TLoadSession& session, bool joined, const TBody& body) {
    FSession = &session;
    const std::size_t firstOwn = session.Components.size();
    const std::uint64_t firstWaiting = TWaitingReferences::Current().NextNumber();
    try {
        body();
    } catch (...) {
        TWaitingReferences::Current().Forget(session.Number(), firstWaiting);
        Abandon(firstOwn, joined);
        throw;
    }
}

void TFormLoader::Load(TComponent& root) {
    TLoadSession* outer = TLoadSession::Current();
    if (outer && outer->Takes(root)) {
        RunIn(*outer, true, [&] { Read(outer->Enter(root, false)); });
        return;
    }
    TLoadSession session;
    RunIn(session, false, [&] {
        Read(session.Enter(root, false));
        Finish();
    });
}

std::unique_ptr<TComponent> TFormLoader::Create(TComponent* owner) {
    const TFormObject source = FDocument.Root();
    TLoadSession session;
    std::unique_ptr<TComponent> root;
    RunIn(session, false, [&] {
        At(PlaceOf(source), {}, NameOf(source));
        TLoadedComponent* entry = nullptr;
        WithPlace([&] { entry = &session.Enter(*session.Create(FindClass(source.ClassName()), owner), true); });
        MarkParts(*entry->Component);
        Read(*entry);
        root = Finished(*entry);
    });
    return root;
}

std::unique_ptr<TComponent> TFormLoader::Construct(const TClassInfo& info, TComponent* owner) {
    TLoadSession session;
    std::unique_ptr<TComponent> root;
    RunIn(session, false, [&] {
        TLoadedComponent& entry = session.Enter(*session.Create(info, owner), true);
        if (entry.Name.empty())
            entry.Name = info.Name(); // it read no form
        root = Finished(entry);
    });
    return root;
}

/// All forms of the session are read.
void TFormLoader::Finish() {
    // Setters may load further ones.
    for (std::size_t i = 0; i < FSession->Roots.size(); ++i) {
        const TLoadedComponent* root = FSession->Roots[i];
        ResolveWaiting([root](const TWaitingReference&, StringView name) {
            return root->Alive && TNameEqual()(root->Component->GetName(), name) ? root->Component : nullptr;
        });
    }
    FSession->Close();
    CallLoaded();
}

std::unique_ptr<TComponent> TFormLoader::Finished(TLoadedComponent& entry) {
    Finish();
    At(entry);
    if (!entry.Alive)
        Fail(u"the object was destroyed when it had been read");
    return std::unique_ptr<TComponent>(entry.Component);
}

void TFormLoader::Read(TLoadedComponent& root) {
    FRoot = &root;
    OpenRoot(root);
    while (!FFrames.empty())
        Step();
    ResolveReferences();
}

void TFormLoader::Step() {
    TFrame& frame = FFrames.back();
    if (!frame.Life.Lasts()) {
        FObject.clear();
        Fail(u"the object was destroyed while it was being read");
    }
    if (frame.NextProperty != frame.EndOfProperties)
        ReadProperty(*frame.NextProperty++);
    else if (frame.NextMember == frame.EndOfMembers)
        CloseFrame();
    else if (frame.Collection)
        OpenItem(*frame.NextMember++);
    else
        OpenChild(*frame.NextMember++);
}

void TFormLoader::CallLoaded() {
    // Handlers may destroy components that are still to come.
    for (std::size_t i = 0; i < FSession->Components.size(); ++i) {
        TLoadedComponent& entry = FSession->Components[i];
        if (!entry.Alive || !entry.Component->FComponentState.Contains(csLoading))
            continue;
        At(entry);
        WithPlace([&] { entry.Component->Loaded(); });
        if (entry.Alive)
            entry.Component->ChangeState(csLoading, false);
    }
    for (std::size_t i = 0; i < FSession->Components.size(); ++i) {
        TLoadedComponent& entry = FSession->Components[i];
        if (!entry.Alive)
            continue;
        At(entry);
        WithPlace([&] { entry.Component->LoadFinished(); });
    }
}

/// Undoes a load that failed: what it created goes, the newest first; what was there before is no longer loading.
void TFormLoader::Abandon(std::size_t firstOwn, bool joined) {
    while (!FFrames.empty()) {
        const TFrame frame = std::move(FFrames.back());
        FFrames.pop_back();
        if (!frame.Collection || !frame.Life.Lasts())
            continue;
        try {
            frame.Collection->EndUpdate();
        } catch (...) { // NOLINT(bugprone-empty-catch): the first exception tells what went wrong
        }
    }
    auto& components = FSession->Components;
    for (std::size_t i = components.size(); i-- > firstOwn;) {
        TLoadedComponent& entry = components[i];
        if (!entry.Alive)
            continue;
        if (entry.Created) {
            delete entry.Component;
            continue;
        }
        entry.Component->ChangeState(csReading, false);
        if (!joined)
            entry.Component->ChangeState(csLoading, false);
    }
}

// Objects

void TFormLoader::OpenRoot(TLoadedComponent& root) {
    const TFormObject source = FDocument.Root();
    FSession->Roots.push_back(&root);
    FFile = FSession->Files.emplace_back(FFileName);
    Describe(root, source);
    CheckClass(*root.Component, source.ClassName());
    if (source.Kind() == TFormObjectKind::Inherited) {
        // What is there already came from the ancestor's form.
        root.Component->ChangeState(csAncestor, true);
        MarkParts(*root.Component);
    }
    BeginReading(root, source, RootName(*root.Component, source.Name()), nullptr);
}

/// Notes where the form speaks of a component, here and for messages to come.
void TFormLoader::Describe(TLoadedComponent& entry, const TFormObject& source) {
    entry.Place = PlaceOf(source);
    entry.Name = NameOf(source);
    entry.File = FFile;
    At(entry);
}

/// Marks what a component owns as brought along by its class: a saved form says `inherited` of it.
void TFormLoader::MarkParts(TComponent& owner) {
    for (TComponent* part : owner.FComponents)
        part->ChangeState(csAncestor, true);
}

void TFormLoader::OpenChild(const TFormObject& source) {
    const TFrame& frame = FFrames.back();
    auto* parent = static_cast<TComponent*>(frame.Target);
    At(PlaceOf(source), {}, NameOf(source));
    TLoadedComponent* entry = FindExisting(source, *frame.Scope->Component);
    const bool isNew = !entry;
    if (isNew)
        entry = CreateObject(source, *frame.Scope->Component);
    if (!entry)
        return;
    Describe(*entry, source);
    BeginReading(*entry, source, String(source.Name()), isNew ? parent : nullptr);
}

/// The component that an inherited or inline object changes; null when it has to be created.
TLoadedComponent* TFormLoader::FindExisting(const TFormObject& source, TComponent& scope) {
    if (source.Kind() == TFormObjectKind::Object)
        return nullptr;
    TComponent* component = scope.FindComponent(source.Name());
    if (!component) {
        if (source.Kind() == TFormObjectKind::Inherited)
            Fail(u"the object is inherited, but " + scope.GetNamePath() + u" has no such component");
        return nullptr;
    }
    CheckClass(*component, source.ClassName());
    return &FSession->Enter(*component, false);
}

/// Null when the class is unknown and was skipped.
TLoadedComponent* TFormLoader::CreateObject(const TFormObject& source, TComponent& scope) {
    const TClassInfo* info = GetClass(source.ClassName());
    if (!info && FOptions.SkipUnknownClasses) {
        WithPlace([&] { SkipObject(source); });
        return nullptr;
    }
    TLoadedComponent* entry = nullptr;
    WithPlace([&] {
        TComponent* component = FSession->Create(info ? *info : FindClass(source.ClassName()), &scope);
        entry = &FSession->Enter(*component, true);
        if (source.Kind() != TFormObjectKind::Inline)
            return;
        component->ChangeState(csInline, true);
        MarkParts(*component);
    });
    return entry;
}

void TFormLoader::SkipObject(const TFormObject& source) {
    Skip(u"class " + String(source.ClassName()) + u" not found", source.ClassName());
    // References to anything in it are skipped too.
    std::vector<TFormObject> pending{source};
    while (!pending.empty()) {
        const TFormObject object = pending.back();
        pending.pop_back();
        FSkippedNames.try_emplace(String(object.Name()), true);
        for (const TFormObject child : object.Children())
            pending.push_back(child);
    }
}

const TClassInfo& TFormLoader::CheckClass(const TComponent& component, StringView className) const {
    for (const TClassInfo* info = &component.ClassInfo(); info; info = info->Parent()) {
        if (TNameEqual()(info->Name(), className))
            return *info;
    }
    Fail(u"the object is a " + component.ClassName() + u", not a " + String(className));
}

/// Prepares a component and puts its frame on the pile; without a parent it stays where it is.
void TFormLoader::BeginReading(TLoadedComponent& entry, const TFormObject& source, const String& name,
                               TComponent* parent) {
    TComponent& component = *entry.Component;
    WithPlace([&] {
        component.Updating();
        if (!entry.Alive)
            return;
        component.ChangeState(csLoading, true);
        component.ChangeState(csReading, true);
        if (source.Kind() == TFormObjectKind::Inherited)
            component.ChangeState(csAncestor, true);
        if (!name.empty())
            component.SetName(name);
        if (entry.Alive && parent)
            component.SetParentComponent(parent);
    });
    if (!entry.Alive)
        Fail(u"the object was destroyed while it was being read");
    // What is no part of the object around it belongs directly into the root; elsewhere it would be lost when saved.
    if (parent && parent != FFrames.back().Scope->Component && component.GetParentComponent() != parent)
        Fail(u"a " + component.ClassName() + u" has no place in a " + parent->ClassName());
    PushObject(entry, source);
}

void TFormLoader::PushObject(TLoadedComponent& entry, const TFormObject& source) {
    TFrame frame;
    frame.Target = entry.Component;
    frame.Life.Component = &entry;
    const bool ownsChildren = FFrames.empty() || entry.Component->FComponentState.Contains(csInline);
    frame.Scope = ownsChildren ? &entry : FFrames.back().Scope;
    frame.Class = &CheckClass(*entry.Component, source.ClassName());
    frame.Place = entry.Place;
    frame.Name = entry.Name;
    frame.Position = FFrames.empty() ? std::nullopt : source.Position();
    frame.NextProperty = source.Properties().begin();
    frame.EndOfProperties = source.Properties().end();
    frame.NextMember = source.Children().begin();
    frame.EndOfMembers = source.Children().end();
    FFrames.push_back(std::move(frame));
}

void TFormLoader::OpenCollection(TCollection& collection, const TFormProperty& property) {
    const TFrame& outer = FFrames.back();
    TFrame frame;
    frame.Target = &collection;
    frame.Collection = &collection;
    frame.Life = outer.Life;
    frame.Scope = outer.Scope;
    frame.Place = FPlace;
    frame.Name = u"." + String(property.Name());
    frame.NextMember = property.Value().Items().begin();
    frame.EndOfMembers = property.Value().Items().end();
    collection.BeginUpdate();
    FFrames.push_back(std::move(frame));
    FProperty = {};
    collection.Clear();
}

void TFormLoader::OpenItem(const TFormObject& source) {
    At(PlaceOf(source));
    TCollection& collection = *FFrames.back().Collection;
    TCollectionItem* item = nullptr;
    const int index = collection.GetCount();
    WithPlace([&] { item = collection.Add(); });
    if (!item)
        Fail(u"an item was destroyed when it joined the collection");
    TFrame frame;
    frame.Target = item;
    frame.Life = {FFrames.back().Life.Component, item->LifeToken(), true};
    frame.Scope = FFrames.back().Scope;
    frame.Place = FPlace;
    frame.Name = u"[" + IntToStr(index) + u"]";
    frame.NextProperty = source.Properties().begin();
    frame.EndOfProperties = source.Properties().end();
    FFrames.push_back(std::move(frame));
}

void TFormLoader::CloseFrame() {
    const TFrame frame = std::move(FFrames.back());
    FFrames.pop_back();
    FProperty = {};
    if (frame.Collection) {
        At(frame.Place, StringView(frame.Name).substr(1));
        WithPlace([&] { frame.Collection->EndUpdate(); });
        FProperty = {};
    } else if (frame.IsObject()) {
        TComponent* component = frame.Life.Component->Component;
        component->ChangeState(csReading, false);
        if (frame.Scope == frame.Life.Component) {
            At(frame.Place, {}, frame.Name);
            CheckFields(*component, *frame.Class);
        }
        if (!frame.Position)
            return;
        TComponent* parent = component->GetParentComponent();
        if (!parent)
            parent = component->FOwner;
        At(frame.Place, {}, frame.Name);
        if (parent)
            WithPlace([&] { parent->SetChildOrder(component, *frame.Position); });
    }
}

/// Fields are filled while components get their names. Those of a class under construction, and those whose component
/// was named before its class was complete, are still empty; those of the class that the form is for must not remain
/// so.
void TFormLoader::CheckFields(TComponent& owner, const TClassInfo& named) {
    for (const TFieldInfo& field : owner.ClassInfo().Fields()) {
        TComponent* component = owner.FindComponent(field.Name);
        if (component)
            owner.FillField(component, true);
        if (field.Get(owner) || !named.FindField(field.Name) || FSkippedNames.contains(field.Name))
            continue;
        if (!component)
            Fail(u"the form has no component for the field " + field.Name);
        if (const TLoadedComponent* entry = FSession->Find(component))
            At(*entry);
        Fail(u"a " + component->ClassName() + u" does not fit the field " + field.Name + u", which takes a " +
             field.ObjectClass().Name());
    }
}

} // namespace framework
