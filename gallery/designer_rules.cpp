#include "gallery/designer_rules.h"

#include "framework/system/names.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace gallery {

const std::vector<TGrip>& DesignGrips() {
    static const std::vector<TGrip> grips{{-1, -1}, {0, -1}, {1, -1}, {-1, 0}, {1, 0}, {-1, 1}, {0, 1}, {1, 1}};
    return grips;
}

namespace {

int EdgeOf(int low, int high, int side) {
    return side < 0 ? low : side > 0 ? high - 1 : (low + high - 1) / 2;
}

} // namespace

TRect GripRect(const TRect& component, TGrip grip) {
    const int left = EdgeOf(component.Left, component.Right, grip.Horizontal) - DesignGripSize / 2;
    const int top = EdgeOf(component.Top, component.Bottom, grip.Vertical) - DesignGripSize / 2;
    return {left, top, left + DesignGripSize, top + DesignGripSize};
}

std::optional<TGrip> GripAt(const TRect& component, TPoint point) {
    // The lower right ones first: with a component as small as a grip, it can still be made larger.
    for (auto grip = DesignGrips().rbegin(); grip != DesignGrips().rend(); ++grip) {
        const TRect rect = GripRect(component, *grip);
        if (point.X >= rect.Left && point.X < rect.Right && point.Y >= rect.Top && point.Y < rect.Bottom)
            return *grip;
    }
    return std::nullopt;
}

TRect FrameBetween(TPoint from, TPoint to) {
    return {std::min(from.X, to.X), std::min(from.Y, to.Y), std::max(from.X, to.X), std::max(from.Y, to.Y)};
}

int SnappedToGrid(int value) {
    const int shifted = value + DesignGrid / 2;
    const int cell = shifted >= 0 ? shifted / DesignGrid : -((DesignGrid - 1 - shifted) / DesignGrid);
    return cell * DesignGrid;
}

TPoint SnappedMove(const TRect& component, TPoint drag) {
    return {drag.X == 0 ? 0 : SnappedToGrid(component.Left + drag.X) - component.Left,
            drag.Y == 0 ? 0 : SnappedToGrid(component.Top + drag.Y) - component.Top};
}

TRect SnappedSize(const TRect& component, TGrip grip, TPoint drag) {
    TRect sized = component;
    if (grip.Horizontal < 0 && drag.X != 0)
        sized.Left = std::min(SnappedToGrid(component.Left + drag.X), component.Right - LeastDesignSize);
    else if (grip.Horizontal > 0 && drag.X != 0)
        sized.Right = std::max(SnappedToGrid(component.Right + drag.X), component.Left + LeastDesignSize);
    if (grip.Vertical < 0 && drag.Y != 0)
        sized.Top = std::min(SnappedToGrid(component.Top + drag.Y), component.Bottom - LeastDesignSize);
    else if (grip.Vertical > 0 && drag.Y != 0)
        sized.Bottom = std::max(SnappedToGrid(component.Bottom + drag.Y), component.Top + LeastDesignSize);
    return sized;
}

String FreeComponentName(StringView className, const std::set<String>& taken) {
    const StringView stem = className.size() > 1 && className[0] == u'T' ? className.substr(1) : className;
    for (int number = 1;; ++number) {
        String name = String(stem) + IntToStr(number);
        const bool isTaken =
            std::any_of(taken.begin(), taken.end(), [&](const String& each) { return TNameEqual()(each, name); });
        if (!isTaken)
            return name;
    }
}

// Steps

void TDesignHistory::Begin(std::string text) {
    FTexts.clear();
    FTexts.push_back(std::move(text));
    FPresent = 0;
}

void TDesignHistory::Add(std::string text) {
    if (text == Present())
        return;
    FTexts.resize(FPresent + 1);
    FTexts.push_back(std::move(text));
    if (FTexts.size() > MostSteps + 1)
        FTexts.erase(FTexts.begin());
    FPresent = FTexts.size() - 1;
}

const std::string& TDesignHistory::Undo() {
    if (CanUndo())
        --FPresent;
    return Present();
}

const std::string& TDesignHistory::Redo() {
    if (CanRedo())
        ++FPresent;
    return Present();
}

// Pieces of text forms

namespace {

/// `count` lines from `first` on hold an object of this name, indented by so many blanks.
struct TObjectLines {
    std::string Name;
    std::string ClassName;
    std::size_t First = 0;
    std::size_t Count = 0;
    std::size_t Indent = 0;
};

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

/// The objects of a form in their order, the form itself first. Only lines of their own indentation begin and end them:
/// what strings and collections hold is indented further than the object around it.
std::vector<TObjectLines> ObjectsOf(const std::vector<std::string>& lines) {
    std::vector<TObjectLines> objects;
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string& line = lines[i];
        const std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
        if (indent != 2 * open.size() && (open.empty() || indent != 2 * (open.size() - 1)))
            continue;
        const std::string_view rest = std::string_view(line).substr(indent);
        const std::size_t colon = rest.find(": ");
        const bool begins =
            (rest.starts_with("object ") || rest.starts_with("inherited ") || rest.starts_with("inline ")) &&
            indent == 2 * open.size();
        if (begins) {
            const std::size_t name = rest.find(' ') + 1;
            const std::size_t classAt = colon == std::string_view::npos ? name : colon + 2;
            TObjectLines object;
            if (colon != std::string_view::npos)
                object.Name = std::string(rest.substr(name, colon - name));
            object.ClassName = std::string(rest.substr(classAt, rest.find(' ', classAt) - classAt));
            object.First = i;
            object.Indent = indent;
            open.push_back(objects.size());
            objects.push_back(std::move(object));
        } else if (rest == "end" && !open.empty() && indent == objects[open.back()].Indent) {
            objects[open.back()].Count = i + 1 - objects[open.back()].First;
            open.pop_back();
        }
    }
    return objects;
}

/// Those of the names, the outermost ones only. The form itself is none of them.
std::vector<TObjectLines> Chosen(const std::vector<TObjectLines>& objects, const std::vector<std::string>& names) {
    std::vector<TObjectLines> chosen;
    for (std::size_t i = 1; i < objects.size(); ++i) {
        const TObjectLines& object = objects[i];
        const bool isInside = !chosen.empty() && object.First < chosen.back().First + chosen.back().Count;
        if (!isInside && !object.Name.empty() && std::find(names.begin(), names.end(), object.Name) != names.end())
            chosen.push_back(object);
    }
    return chosen;
}

/// The line with the references to renamed components renamed: the whole of a value or its first part, as in
/// `FocusControl = Edit1` and `Peer = Panel1.Edit1`.
std::string Renamed(const std::string& line, const std::map<std::string, std::string>& names) {
    const std::size_t equals = line.find(" = ");
    if (equals == std::string::npos)
        return line;
    const std::size_t begin = equals + 3;
    const std::size_t end = std::min(line.find_first_of(". ", begin), line.size());
    const auto renamed = names.find(line.substr(begin, end - begin));
    return renamed == names.end() ? line : line.substr(0, begin) + renamed->second + line.substr(end);
}

/// `Left = 8` at the given indentation becomes `Left = 16`.
std::string Shifted(const std::string& line, std::size_t indent) {
    for (const char* property : {"Left = ", "Top = "}) {
        const std::string_view rest = std::string_view(line).substr(std::min(indent, line.size()));
        const std::size_t length = std::char_traits<char>::length(property);
        if (line.find_first_not_of(' ') == indent && rest.starts_with(property))
            return line.substr(0, indent + length) +
                   std::to_string(std::atoi(line.c_str() + indent + length) + DesignGrid);
    }
    return line;
}

} // namespace

std::string ObjectTexts(const std::string& form, const std::vector<std::string>& names) {
    const std::vector<std::string> lines = Lines(form);
    std::string text;
    for (const TObjectLines& object : Chosen(ObjectsOf(lines), names)) {
        for (std::size_t i = object.First; i < object.First + object.Count; ++i)
            text += lines[i].substr(std::min(object.Indent, lines[i].size())) + "\n";
    }
    return text;
}

TPastedObjects WithObjects(const std::string& form, const std::string& objects, const std::string& parent) {
    std::vector<std::string> lines = Lines(form);
    const std::vector<TObjectLines> present = ObjectsOf(lines);
    if (present.empty())
        return {form, {}};
    const auto named =
        std::find_if(present.begin(), present.end(), [&](const TObjectLines& each) { return each.Name == parent; });
    const TObjectLines& target = named == present.end() ? present.front() : *named;

    // As one form, so that the objects are found by their indentation.
    std::vector<std::string> pasted = Lines("object Clipboard: TClipboard\n");
    for (const std::string& line : Lines(objects))
        pasted.push_back("  " + (line.ends_with('\r') ? line.substr(0, line.size() - 1) : line));
    pasted.emplace_back("end");
    const std::vector<TObjectLines> added = ObjectsOf(pasted);

    std::set<String> taken;
    for (const TObjectLines& object : present)
        taken.insert(Utf8Decode(object.Name));
    std::map<std::string, std::string> names;
    for (std::size_t i = 1; i < added.size(); ++i) {
        const String name = Utf8Decode(added[i].Name);
        const bool clashes =
            std::any_of(taken.begin(), taken.end(), [&](const String& each) { return TNameEqual()(each, name); });
        const String free = clashes ? FreeComponentName(Utf8Decode(added[i].ClassName), taken) : name;
        if (clashes && !name.empty())
            names[added[i].Name] = Utf8Encode(free);
        taken.insert(free);
    }

    for (std::size_t i = 1; i < added.size(); ++i) {
        if (const auto renamed = names.find(added[i].Name); renamed != names.end()) {
            std::string& line = pasted[added[i].First];
            line.replace(line.find(added[i].Name + ": "), added[i].Name.size(), renamed->second);
        }
    }

    TPastedObjects result;
    std::vector<std::string> inserted;
    for (std::size_t i = 1; i < added.size(); ++i) {
        if (added[i].Indent != 2 || added[i].Count == 0) // inside another one, or without its end
            continue;
        const auto renamed = names.find(added[i].Name);
        result.Names.push_back(renamed == names.end() ? added[i].Name : renamed->second);
        for (std::size_t j = added[i].First; j < added[i].First + added[i].Count; ++j) {
            const std::string line = names.empty() ? pasted[j] : Shifted(pasted[j], 4);
            inserted.push_back(std::string(target.Indent, ' ') + Renamed(line, names));
        }
    }
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(target.First + target.Count - 1), inserted.begin(),
                 inserted.end());
    result.Form = Joined(lines);
    return result;
}

} // namespace gallery
