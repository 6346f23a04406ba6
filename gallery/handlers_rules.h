#pragma once

// Handlers of events as a designer knows them: by their names, and before anybody has written them. Which there are
// follows from the events that name them.

#include "framework/system/components.h"

#include <typeindex>

namespace gallery {
using namespace framework;

struct THandler {
    String Name;
    std::type_index Signature; ///< of the events that it fits
    String Event;              ///< one of these: "Edit1.OnChange"
};

/// A form whose class is still being designed: its methods are those that the designer names.
class THandlerTaker {
public:
    virtual ~THandlerTaker() = default;
    /// Gives the class methods of these names which do nothing, and no others. EPropertyError for a signature that
    /// nobody knows.
    virtual void TakeHandlers(const std::vector<THandler>& handlers) = 0;
};

/// The component that an object is, or belongs to as a part.
TComponent* ComponentOf(TPersistent* object);
/// Whose components and methods the properties of an object may refer to: the owner of its component, or the component
/// itself where nobody owns it; null for what belongs to no component.
TComponent* FormOf(TPersistent* object);

/// The handlers that events of `form` and of its components name, in the order of their names.
std::vector<THandler> HandlersOf(TComponent& form);
/// The names of those which fit an event of an object; where they are not designed, the methods of the form's class.
std::vector<String> FittingHandlers(TPersistent& object, const TPropInfo& event);

/// Whether a person may name handlers that are not there yet.
bool TakesNewHandlers(TPersistent& object);
/// "Edit1Change" for OnChange of Edit1, "FormCreate" for the form itself; with a number behind it where the name stands
/// for something else already.
String UsualHandler(TPersistent& object, const TPropInfo& event);
/// Assigns the handler, which comes into being if it is not there; an empty name takes it away from the event.
/// EPropertyError for a name that is no identifier, or that stands for something else already.
void WriteHandler(TPersistent& object, const TPropInfo& event, StringView name);

} // namespace gallery
