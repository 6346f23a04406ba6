#pragma once

// The page "Lists": towns to deliver to, chosen from thousands in fields of both kinds.

#include "framework/system/stringlist.h"
#include "framework/windows/forms.h"

namespace gallery {
using namespace framework;

class TListsPage : public TForm {
    FRAMEWORK_CLASS(TListsPage)

public:
    explicit TListsPage(TComponent* owner) : TForm(owner) {}

private:
    // What forms/lists.dfm names.
    void PageCreate(TObject* sender);
    void BoxSelect(TObject* sender);
    void BoxNewClick(TObject* sender);
    void ManyClick(TObject* sender);
    void SortClick(TObject* sender);

    void ShowStatus(const String& text);
};

} // namespace gallery
