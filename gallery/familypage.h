#pragma once

// The page "Family": a service order made of masked fields, memos, lists and a calendar under the common framing.

#include "framework/windows/forms.h"

namespace gallery {
using namespace framework;

class TFamilyPage : public TForm {
    FRAMEWORK_CLASS(TFamilyPage)

public:
    explicit TFamilyPage(TComponent* owner) : TForm(owner) {}

private:
    // What forms/family.dfm names.
    void PageCreate(TObject* sender);
    void ScopeClickCheck(TObject* sender);
    void BranchClick(TObject* sender);
    void TermClick(TObject* sender);
    void ConsentClick(TObject* sender);
    void CheckClick(TObject* sender);
    void AvailableClick(TObject* sender);

    void ShowStatus(const String& text, TColor color);
};

} // namespace gallery
