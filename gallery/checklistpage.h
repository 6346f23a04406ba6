#pragma once

// The page "Check list": places to deliver to, found by a phrase and checked, and a tree with columns beside them.

#include "framework/vtree/stringtree.h"
#include "framework/windows/forms.h"

namespace ZOR {
class TZORVirtualStringTree;
}

namespace gallery {
using namespace framework;

class TCheckListPage : public TForm {
    FRAMEWORK_CLASS(TCheckListPage)

public:
    ZOR::TZORVirtualStringTree* CitiesTree = nullptr;
    TVirtualStringTree* RegionsTree = nullptr;

    explicit TCheckListPage(TComponent* owner) : TForm(owner) {}

private:
    // What forms/check-list.dfm names.
    void PageCreate(TObject* sender);
    void CitiesChecked(TBaseVirtualTree* sender, TVirtualNode* node);
    void RegionsInitNode(TBaseVirtualTree* sender, TVirtualNode* parent, TVirtualNode* node,
                         TVirtualNodeInitStates& states);
    void RegionsInitChildren(TBaseVirtualTree* sender, TVirtualNode* node, unsigned& count);
    void RegionsGetText(TBaseVirtualTree* sender, TVirtualNode* node, TColumnIndex column, TVSTTextType type,
                        String& text);
    void RegionsCompareNodes(TBaseVirtualTree* sender, TVirtualNode* first, TVirtualNode* second, TColumnIndex column,
                             int& result);
    void CountClick(TObject* sender);
    void AvailableClick(TObject* sender);
    void MirrorClick(TObject* sender);

    void ShowCounts();
};

} // namespace gallery
