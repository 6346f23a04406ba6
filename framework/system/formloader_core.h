#pragma once

// The machinery behind formloader.h.

#include "framework/system/formloader.h"
#include "framework/system/loadsession.h"
#include "framework/system/strings.h"

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

private:
    /// Tells whether what is being read is still there: the component and, inside a collection, the item.
    struct TTargetLife {
        TLoadedComponent* Component = nullptr;
        std::weak_ptr<const void> Item;
        bool InItem = false;

        bool Lasts() const { return Component->Alive && !(InItem && Item.expired()); }
    };

    /// An object, collection or item whose reading has begun.
    struct TFrame {
        TPersistent* Target = nullptr;
        TCollection* Collection = nullptr; ///< set for a collection
        TTargetLife Life;
        TLoadedComponent* Scope = nullptr; ///< who owns the children, and where names are looked up first
        TFormPlace Place;
        String Name; ///< of an object, `.Property` of a collection, `[index]` of an item
        std::optional<std::int32_t> Position;
        TFormRange<TFormProperty>::Iterator NextProperty;
        TFormRange<TFormProperty>::Iterator EndOfProperties;
        TFormRange<TFormObject>::Iterator NextMember; ///< a child or an item
        TFormRange<TFormObject>::Iterator EndOfMembers;

        bool IsObject() const { return !Collection && !Life.InItem; }
    };

    /// A property that waits for the component it names.
    struct TReference {
        TTargetLife Life;
        TPersistent* Target;
        TFormProperty Property;
        TLoadedComponent* Scope;
        String ObjectPath;
    };

    /// Where a property path leads; no property when it is unknown and was skipped.
    struct TDestination {
        TPersistent* Object = nullptr;
        const TPropInfo* Property = nullptr;
    };

    // What is being done, for messages.

    /// Messages speak of this place and property, of the innermost frame's object unless another is given.
    void At(TFormPlace place, StringView property = {}, String object = {});
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
    void CallLoaded();
    void Abandon(std::size_t firstOwn, bool joined);

    // Objects, collections and items.

    void OpenRoot(TLoadedComponent& root);
    static void MarkParts(TComponent& owner);
    void OpenChild(const TFormObject& source);
    TLoadedComponent* FindExisting(const TFormObject& source, TComponent& scope);
    TLoadedComponent* CreateObject(const TFormObject& source, TComponent& scope);
    void SkipObject(const TFormObject& source);
    void CheckClass(const TComponent& component, StringView className) const;
    void BeginReading(TLoadedComponent& entry, const TFormObject& source, const String& name, TComponent* parent);
    void PushObject(TLoadedComponent& entry, const TFormObject& source);
    void OpenCollection(TCollection& collection, const TFormProperty& property);
    void OpenItem(const TFormObject& source);
    void CloseFrame();

    // Properties.

    void ReadProperty(const TFormProperty& property);
    TDestination FindDestination(TPersistent& start, const TFormProperty& property);
    void ReadObjectProperty(const TDestination& destination, const TFormProperty& property);
    void ReadEvent(const TDestination& destination, const TFormValue& value);
    void ResolveReferences();
    void Resolve(const TReference& reference);
    TComponent* FindNamed(StringView path, const TLoadedComponent& scope) const;

    const TFormDocument& FDocument;
    const TLoadOptions& FOptions;
    String FFileName;
    TLoadSession* FSession = nullptr;
    TLoadedComponent* FRoot = nullptr;
    std::vector<TFrame> FFrames;
    std::vector<TReference> FReferences;
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
