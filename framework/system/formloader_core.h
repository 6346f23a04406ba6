#pragma once

// The machinery behind formloader.h.

#include "framework/system/formloader.h"
#include "framework/system/strings.h"
#include "framework/system/waitingreferences.h"

#include <new>
#include <optional>

namespace framework {

class TCollection;

/// Reads one document. Nesting is kept in frames of its own, so that no depth overflows the stack.
class TFormLoader {
public:
    TFormLoader(const TFormDocument& document, const TLoadOptions& options);

    void Load(TComponent& root);
    std::unique_ptr<TComponent> Create(TComponent* owner);
    std::unique_ptr<TComponent> Construct(const TClassInfo& info, TComponent* owner);
    using TFindWaited = std::function<TComponent*(const TWaitingReference& reference, StringView root)>;
    /// Sets the waiting references whose root is found.
    void ResolveWaiting(const TFindWaited& find);

private:
    /// An object, collection or item whose reading has begun.
    struct TFrame {
        TPersistent* Target = nullptr;
        TCollection* Collection = nullptr; ///< set for a collection
        TTargetLife Life;
        TLoadedComponent* Scope = nullptr; ///< who owns the children, and where names are looked up first
        const TClassInfo* Class = nullptr; ///< of an object, as the form names it
        TFormPlace Place;
        String Name; ///< of an object, `.Property` of a collection, `[index]` of an item
        std::optional<std::int32_t> Position;
        TFormRange<TFormProperty>::Iterator NextProperty;
        TFormRange<TFormProperty>::Iterator EndOfProperties;
        TFormRange<TFormObject>::Iterator NextMember; ///< a child or an item
        TFormRange<TFormObject>::Iterator EndOfMembers;

        bool IsObject() const { return !Collection && !Life.InItem; }
    };

    /// Where a property path leads; no property when the object does not publish the name that comes next.
    struct TDestination {
        TPersistent* Object = nullptr;
        const TPropInfo* Property = nullptr;
        StringView Unknown = {};
    };
    struct TScopedReference {
        TReference Reference;
        TLoadedComponent* Scope;
    };

    // What is being done, for messages.

    /// Messages speak of this place and property, of the innermost frame's object unless another is given.
    void At(TFormPlace place, StringView property = {}, String object = {});
    /// Messages speak of this component, perhaps of another form in the session.
    void At(const TLoadedComponent& entry);
    String ObjectPath() const;
    EFormLoad Error(StringView problem) const;
    [[noreturn]] void Fail(StringView problem) const { throw Error(problem); }
    void Skip(StringView problem, StringView className);
    StringView WithoutSubject(const String& message) const;
    /// Runs `body` and gives what it raises the present place.
    template <class TBody>
    void WithPlace(const TBody& body);

    // The course of a load.

    /// Runs a load as part of a session; when it fails, nothing that it created is left.
    template <class TBody>
    void RunIn(TLoadSession& session, bool joined, const TBody& body);
    void Read(TLoadedComponent& root);
    void Step();
    void Finish();
    void CallLoaded();
    std::unique_ptr<TComponent> Finished(TLoadedComponent& entry);
    void Abandon(std::size_t firstOwn, bool joined);

    // Objects, collections and items.

    void OpenRoot(TLoadedComponent& root);
    static void MarkParts(TComponent& owner);
    void OpenChild(const TFormObject& source);
    TLoadedComponent* FindExisting(const TFormObject& source, TComponent& scope);
    TLoadedComponent* CreateObject(const TFormObject& source, TComponent& scope);
    void SkipObject(const TFormObject& source);
    /// The class of that name among the component's own and its ancestors; raises when there is none.
    const TClassInfo& CheckClass(const TComponent& component, StringView className) const;
    void Describe(TLoadedComponent& entry, const TFormObject& source);
    void BeginReading(TLoadedComponent& entry, const TFormObject& source, const String& name, TComponent* parent);
    void PushObject(TLoadedComponent& entry, const TFormObject& source);
    void OpenCollection(TCollection& collection, const TFormProperty& property);
    void OpenItem(const TFormObject& source);
    void CloseFrame();
    void CheckFields(TComponent& owner, const TClassInfo& named);

    // Properties.

    void ReadProperty(const TFormProperty& property);
    static TDestination FindDestination(TPersistent& start, StringView path);
    TDestination FindKnown(TPersistent& start, StringView path);
    void ReadObjectProperty(const TDestination& destination, const TFormProperty& property);
    void ReadEvent(const TDestination& destination, const TFormValue& value);
    void ResolveReferences();
    void Resolve(const TScopedReference& reference);
    void SetReference(const TReference& reference, TComponent* component);
    TComponent* FindFirst(StringView name, const TLoadedComponent& scope) const;
    TComponent* FindNamed(StringView path, const TLoadedComponent& scope) const;

    const TFormDocument& FDocument;
    const TLoadOptions& FOptions;
    String FFileName;
    StringView FFile; ///< the same for as long as the session lasts
    TLoadSession* FSession = nullptr;
    TLoadedComponent* FRoot = nullptr;
    std::vector<TFrame> FFrames;
    std::vector<TScopedReference> FReferences;
    TNameMap<bool> FSkippedNames;

    TFormPlace FPlace;
    String FObject;
    StringView FProperty;
    const TClassInfo* FTargetClass = nullptr;
    const TPropInfo* FTargetProperty = nullptr;
};

template <class TBody>
void TFormLoader::WithPlace(const TBody& body) {
    FTargetProperty = nullptr;
    try {
        body();
    } catch (const EFormError&) {
        throw; // it has a place, perhaps in another form
    } catch (const EAbort&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const Exception& error) {
        std::throw_with_nested(Error(WithoutSubject(error.GetMessageText())));
    } catch (const std::exception& error) {
        std::throw_with_nested(Error(Utf8Decode(error.what())));
    }
}

} // namespace framework
