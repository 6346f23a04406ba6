#pragma once

// The two trees that programs use: one whose nodes are texts, one whose nodes the program paints.

#include "framework/vtree/virtualtree.h"

namespace framework {

enum TVSTTextType { ttNormal, ttStatic };
const TEnumInfo& DescribeEnum(TVSTTextType);

class TVirtualStringTree;
using TVSTGetTextEvent = std::function<void(TBaseVirtualTree* Sender, TVirtualNode* Node, TColumnIndex Column,
                                            TVSTTextType TextType, String& CellText)>;
using TVTPaintTextEvent = std::function<void(TBaseVirtualTree* Sender, TCanvas* TargetCanvas, TVirtualNode* Node,
                                             TColumnIndex Column, TVSTTextType TextType)>;
using TVTDrawNodeEvent = std::function<void(TBaseVirtualTree* Sender, const TVTPaintInfo& PaintInfo)>;
using TVTGetNodeWidthEvent = std::function<void(TBaseVirtualTree* Sender, TCanvas* HintCanvas, TVirtualNode* Node,
                                                TColumnIndex Column, int& NodeWidth)>;

class TCustomVirtualStringTree : public TBaseVirtualTree {
    FRAMEWORK_CLASS(TCustomVirtualStringTree)

public:
    FRAMEWORK_PROPERTY(String, DefaultText, GetDefaultText, SetDefaultText);

    TVSTGetTextEvent OnGetText;
    TVTPaintTextEvent OnPaintText; ///< may change the canvas's font for one text

    explicit TCustomVirtualStringTree(TComponent* owner);

    /// What OnGetText finds in the text, and what shows without it.
    const String& GetDefaultText() const { return FDefaultText; }
    void SetDefaultText(const String& value);
    bool DefaultTextStored() const { return FDefaultText != kDefaultText; }
    String GetCellText(TVirtualNode* node, TColumnIndex column) { return NodeText(node, column); }
    String NodeText(TVirtualNode* node, TColumnIndex column) override;

protected:
    virtual void DoGetText(TVirtualNode* node, TColumnIndex column, TVSTTextType textType, String& text);
    /// How much of a text DoGetText is asked for, in characters: painting needs no more than fits on any screen.
    std::size_t TextWanted() const { return FTextWanted; }
    virtual void DoPaintText(TVirtualNode* node, TCanvas& canvas, TColumnIndex column, TVSTTextType textType);
    void DoPaintNode(TVTPaintInfo& info) override;
    int DoGetNodeWidth(TVirtualNode* node, TColumnIndex column) override;

private:
    static constexpr StringView kDefaultText = u"Node";

    String TextOf(TVirtualNode* node, TColumnIndex column, std::size_t wanted);

    String FDefaultText{kDefaultText};
    std::size_t FTextWanted = String::npos;
};

class TVirtualStringTree : public TCustomVirtualStringTree {
    FRAMEWORK_CLASS(TVirtualStringTree)

public:
    explicit TVirtualStringTree(TComponent* owner) : TCustomVirtualStringTree(owner) {}
};

class TCustomVirtualDrawTree : public TBaseVirtualTree {
    FRAMEWORK_CLASS(TCustomVirtualDrawTree)

public:
    TVTDrawNodeEvent OnDrawNode; ///< paints what is in a cell, and cannot reach beyond it
    TVTGetNodeWidthEvent OnGetNodeWidth;

    explicit TCustomVirtualDrawTree(TComponent* owner) : TBaseVirtualTree(owner) {}

protected:
    void DoPaintNode(TVTPaintInfo& info) override;
    int DoGetNodeWidth(TVirtualNode* node, TColumnIndex column) override;
};

class TVirtualDrawTree : public TCustomVirtualDrawTree {
    FRAMEWORK_CLASS(TVirtualDrawTree)

public:
    explicit TVirtualDrawTree(TComponent* owner) : TCustomVirtualDrawTree(owner) {}
};

/// Makes both known to text forms.
void RegisterVirtualTrees();

} // namespace framework
