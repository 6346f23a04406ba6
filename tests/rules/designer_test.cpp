// The form designer without a window: grips and grid, names, steps, and pieces of text forms.

#include "framework/system/textform.h"
#include "gallery/designer_rules.h"

#include <gtest/gtest.h>

namespace {

using namespace framework;
using namespace gallery;

TEST(Designer, GripsLieOnTheOutlineAndMoveTheirEdges) {
    const TRect box{16, 24, 116, 45};
    EXPECT_EQ(GripRect(box, {-1, -1}), (TRect{13, 21, 20, 28}));
    EXPECT_EQ(GripAt(box, {115, 44}), (TGrip{1, 1}));
    EXPECT_EQ(GripAt(box, {65, 24}), (TGrip{0, -1}));
    EXPECT_EQ(GripAt(box, {40, 34}), std::nullopt);
    EXPECT_EQ(GripAt({10, 10, 12, 12}, {11, 11}), (TGrip{1, 1})) << "a tiny component can be made larger";

    const struct {
        TGrip Grip;
        TPoint Drag;
        TRect Sized;
    } rows[] = {
        {{1, 1}, {10, 10}, {16, 24, 128, 56}},      {{1, 1}, {0, 10}, {16, 24, 116, 56}},
        {{-1, 0}, {-3, 99}, {16, 24, 116, 45}},     {{-1, 0}, {-5, 99}, {8, 24, 116, 45}},
        {{-1, -1}, {500, 500}, {112, 41, 116, 45}}, {{1, 1}, {-500, -500}, {16, 24, 20, 28}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(SnappedSize(box, row.Grip, row.Drag), row.Sized) << row.Drag.X << "," << row.Drag.Y;
    EXPECT_EQ(SnappedMove({13, 24, 50, 50}, {1, 0}), (TPoint{3, 0})) << "what was not dragged stays";
    EXPECT_EQ(SnappedMove({8, 8, 50, 50}, {-11, -13}), (TPoint{-8, -16}));
}

TEST(Designer, FindsFreeNames) {
    EXPECT_EQ(FreeComponentName(u"TEdit", {}), u"Edit1");
    EXPECT_EQ(FreeComponentName(u"TEdit", {u"EDIT1", u"Edit3"}), u"Edit2");
    EXPECT_EQ(FreeComponentName(u"T", {u"T1"}), u"T2");
}

TEST(Designer, GoesBackAndForthThroughItsSteps) {
    TDesignHistory history;
    history.Begin("a");
    history.Add("b");
    history.Add("b");
    history.Add("c");
    EXPECT_EQ(history.Undo(), "b");
    EXPECT_EQ(history.Undo(), "a");
    EXPECT_EQ(history.Undo(), "a");
    EXPECT_EQ(history.Redo(), "b");
    history.Add("d");
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.Undo(), "b");
    for (std::size_t i = 0; i < 2 * TDesignHistory::MostSteps; ++i)
        history.Add(std::to_string(i));
    std::size_t steps = 0;
    while (history.CanUndo()) {
        history.Undo();
        ++steps;
    }
    EXPECT_EQ(steps, TDesignHistory::MostSteps);
}

constexpr char form[] = "object Form1: TForm\n"
                        "  Caption = 'object Edit1: TEdit'\n"
                        "  object Panel1: TPanel\n"
                        "    Left = 8\n"
                        "    Top = 16\n"
                        "    object Edit1: TEdit\n"
                        "      Left = 40\n"
                        "    end\n"
                        "    object Label1: TLabel\n"
                        "      FocusControl = Edit1\n"
                        "    end\n"
                        "  end\n"
                        "  object Grid1: TGrid\n"
                        "    Columns = <\n"
                        "      item\n"
                        "        Link = Edit1\n"
                        "      end>\n"
                        "    Items.Strings = (\n"
                        "      'end')\n"
                        "  end\n"
                        "  object TTimer\n"
                        "  end\n"
                        "end\n";

TEST(Designer, CopiesObjects) {
    EXPECT_EQ(ObjectTexts(form, {"Edit1", "Panel1", "Nobody", "Form1"}), "object Panel1: TPanel\n"
                                                                         "  Left = 8\n"
                                                                         "  Top = 16\n"
                                                                         "  object Edit1: TEdit\n"
                                                                         "    Left = 40\n"
                                                                         "  end\n"
                                                                         "  object Label1: TLabel\n"
                                                                         "    FocusControl = Edit1\n"
                                                                         "  end\n"
                                                                         "end\n");
    EXPECT_EQ(ObjectTexts(form, {"Label1", "Grid1"}).substr(0, 68), "object Label1: TLabel\n"
                                                                    "  FocusControl = Edit1\n"
                                                                    "end\n"
                                                                    "object Grid1: TGrid");
    EXPECT_EQ(ObjectTexts(form, {}), "");
}

TEST(Designer, PastesUnderFreeNamesAndKeepsReferencesAmongWhatIsPasted) {
    const TPastedObjects same = WithObjects(form, ObjectTexts(form, {"Panel1"}), "Nobody");
    EXPECT_EQ(same.Names, std::vector<std::string>{"Panel2"});
    EXPECT_EQ(ObjectTexts(same.Form, {"Panel2"}), "object Panel2: TPanel\n"
                                                  "  Left = 16\n"
                                                  "  Top = 24\n"
                                                  "  object Edit2: TEdit\n"
                                                  "    Left = 40\n"
                                                  "  end\n"
                                                  "  object Label2: TLabel\n"
                                                  "    FocusControl = Edit2\n"
                                                  "  end\n"
                                                  "end\n");
    const std::string added = ObjectTexts(same.Form, {"Panel2"});
    EXPECT_EQ(same.Form.size(), sizeof(form) - 1 + added.size() + 2 * 10) << "ten lines, indented, and nothing else";
    TFormLayout layout;
    layout.LineEnd = TFormLineEnd::Lf;
    EXPECT_EQ(WriteTextForm(ParseTextForm(same.Form), layout), same.Form);

    const TPastedObjects fresh =
        WithObjects(form, "object Check1: TCheckBox\r\n  Left = 8\r\nend\r\nobject TTimer\r\nend\r\n", "Panel1");
    EXPECT_NE(
        fresh.Form.find("    object Check1: TCheckBox\n      Left = 8\n    end\n    object TTimer\n    end\n  end\n"),
        std::string::npos)
        << fresh.Form;
    const TPastedObjects foreign = WithObjects(form, "what people copy\nend\nobject X: T\n", "Panel1");
    EXPECT_EQ(foreign.Form, form);
    EXPECT_TRUE(foreign.Names.empty());
}

} // namespace
