#pragma once

// Components written as a text form, the counterpart of formloader.h.

#include "framework/system/components.h"
#include "framework/system/textform.h"

namespace framework {

/// The form of `root` and of everything in it, as loading it would give it back: the properties that are stored, in
/// published order, sub-objects as paths, references and published methods by name; then the children in their order.
/// A reference that waits for its form (PendingReferences) is written as the form that it came from had it.
/// Components that an inline frame or an ancestor's form brings along become `inherited`. Handlers that are no
/// published methods are not written; a form has no words for them.
///
/// EComponentError when something refers to a component that has no name, EConvertError for a float that is no number.
/// WriteTextForm (textform.h) makes the text.
TFormDocument SaveTextForm(TComponent& root);

} // namespace framework
