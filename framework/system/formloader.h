#pragma once

// Text forms brought to life: objects of registered classes with their properties, events, references and children.
//
//     TLoadOptions options;
//     options.FileName = u"customers.dfm";
//     LoadTextForm(*this, ParseTextForm(bytes), options);   // in the constructor of TCustomerForm
//
//     const auto form = CreateForm<TCustomerForm>(nullptr);

#include "framework/system/components.h"
#include "framework/system/textform.h"

#include <functional>
#include <memory>

namespace framework {

/// A form that does not fit the classes. The message reads "file(line,column): Edit1.Font.Name: problem"; the place is
/// that of the property, of an element inside its value, or of the object. When a setter, a constructor or Loaded
/// raised, its exception is nested in this one.
class EFormLoad : public EFormError {
public:
    EFormLoad(StringView fileName, std::uint32_t line, std::uint32_t column, StringView object, StringView property,
              StringView problem);
    /// The path of the object, such as Edit1 or Grid1.Columns[2]; the class where an object has no name.
    const String& ObjectName() const { return FObject; }
    /// The property as the form names it; empty when the object as a whole is at fault.
    const String& PropertyName() const { return FProperty; }

private:
    String FObject;
    String FProperty;
};

/// A part of a form that was left out because nobody knows it.
struct TSkippedPart {
    String Object;    ///< as EFormLoad::ObjectName
    String ClassName; ///< of the object
    String Property;  ///< empty for an object of an unknown class, skipped with everything in it
    String Problem;
    std::uint32_t Line = 0;
    std::uint32_t Column = 0;
};

/// A reference that waits for the form or data module it leads to.
struct TPendingReference {
    String FileName; ///< of the form that has it
    String Object;   ///< as EFormLoad::ObjectName
    String Property;
    String Wanted; ///< such as Data.Customers
    std::uint32_t Line = 0;
    std::uint32_t Column = 0;
};

/// Finds a form or data module; null when there is none of that name.
using TFindRoot = std::function<TComponent*(StringView name)>;

struct TLoadOptions {
    /// For messages; by default the name that the document was parsed under.
    String FileName;
    /// Properties that a class does not publish are passed over instead of being an error.
    bool SkipUnknownProperties = false;
    /// Objects of classes that are not registered are passed over with everything in them, as are references to them.
    bool SkipUnknownClasses = false;
    /// References to components that are not there are passed over.
    bool SkipUnknownReferences = false;
    /// Hears of everything passed over. Without it, the switches raise EInvalidOperation.
    std::function<void(const TSkippedPart& part)> OnSkipped;
    /// For references such as `Data.Customers`. Asked before the components of the root's owner are searched.
    TFindRoot FindRoot;
    /// How CreateFromTextForm reads bytes that are not UTF-8.
    TFallbackEncoding FallbackEncoding = TFallbackEncoding::None;
};

/// Reads a form into `root`, an object of the class that the form names or of a descendant. The form's components are
/// created, owned by the root (those inside an `inline` object by that object), named, given their parent and their
/// properties in the order of the form. `inherited` objects must be there, `inline` ones may. The fields that the class
/// named by the form publishes must find their components. References between components are set when all exist; then
/// Loaded is called for all of them in the order of their creation, the root first. A load that begins while another
/// one creates or owns its root leaves the Loaded calls to that one.
///
/// A reference into a form or data module that is not there yet, `Data.Customers`, waits until one of that name is
/// loaded; see PendingReferences.
///
/// Raises EFormLoad. Then the components that the form created are freed again; what it changed in others stays.
void LoadTextForm(TComponent& root, const TFormDocument& document, const TLoadOptions& options = {});

std::unique_ptr<TComponent> CreateForm(const TClassInfo& info, TComponent* owner);
/// The component `T(owner)`, whose constructors read text forms: that of T, and those of the classes that T descends
/// from. All are one load, so each component hears Loaded once, with the properties of all of them set. After a plain
/// `new` it would hear of each form by itself. Raises what the constructors raise, and EFormLoad. With an owner, see
/// CreateFromTextForm.
template <class T>
std::unique_ptr<T> CreateForm(TComponent* owner) {
    return std::unique_ptr<T>(static_cast<T*>(CreateForm(T::StaticClass(), owner).release()));
}

/// Creates the form's root by its registered class and reads the form into it. The root takes the form's name, with _1,
/// _2, ... behind it when another component of `owner` has it already. When it fails nothing that was made is left.
/// With an owner the component is freed by whichever comes first, so most callers release the pointer then.
std::unique_ptr<TComponent> CreateFromTextForm(const TFormDocument& document, TComponent* owner,
                                               const TLoadOptions& options = {});
/// The same for the text of a form; also raises EFormSyntax.
std::unique_ptr<TComponent> CreateFromTextForm(std::string_view bytes, TComponent* owner,
                                               const TLoadOptions& options = {});

/// The references of this thread's loaded forms whose form has not come yet, in the order of loading: empty once
/// everything is there, unless a name is wrong. SaveTextForm writes them as they were.
std::vector<TPendingReference> PendingReferences();
/// Sets those whose form came into being otherwise than by a text form, found by `findRoot` or among the components of
/// the referring root's owner. EFormLoad, with the place of the reference, when one does not fit; it waits no longer.
void ResolvePendingReferences(const TFindRoot& findRoot = {});

} // namespace framework
