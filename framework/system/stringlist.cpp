#include "framework/system/stringlist.h"

#include "framework/system/exceptions.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/system/updates.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace framework {

namespace {

bool IsBlank(char16_t unit) {
    return unit <= u' ';
}

String InQuotes(StringView text, char16_t quote) {
    String result(1, quote);
    for (const char16_t unit : text) {
        result += unit;
        if (unit == quote)
            result += quote;
    }
    return result + quote;
}

/// Cuts a delimited text into its items.
class TDelimitedReader {
public:
    TDelimitedReader(StringView text, const TStrings& rules)
        : FText(text), FDelimiter(rules.Delimiter), FQuote(rules.QuoteChar), FStrict(rules.StrictDelimiter) {}

    std::vector<String> Read() {
        std::vector<String> items;
        SkipBlanks();
        while (!AtEnd()) {
            items.push_back(Current() == FQuote && FQuote != 0 ? ReadQuoted() : ReadPlain());
            SkipBlanks();
            if (AtEnd() || Current() != FDelimiter)
                continue;
            ++FPosition;
            SkipBlanks();
            if (AtEnd()) // a delimiter at the very end promises one more item
                items.emplace_back();
        }
        return items;
    }

private:
    bool AtEnd() const { return FPosition >= FText.size(); }
    char16_t Current() const { return FText[FPosition]; }

    void SkipBlanks() {
        while (!FStrict && !AtEnd() && IsBlank(Current()) && Current() != FDelimiter)
            ++FPosition;
    }

    String ReadPlain() {
        const std::size_t start = FPosition;
        while (!AtEnd() && Current() != FDelimiter && (FStrict || !IsBlank(Current())))
            ++FPosition;
        return String(FText.substr(start, FPosition - start));
    }

    String ReadQuoted() {
        String item;
        for (++FPosition; !AtEnd(); ++FPosition) {
            if (Current() == FQuote) {
                ++FPosition;
                if (AtEnd() || Current() != FQuote)
                    break;
            }
            item += Current();
        }
        return item;
    }

    StringView FText;
    std::size_t FPosition = 0;
    char16_t FDelimiter;
    char16_t FQuote;
    bool FStrict;
};

/// Gives a list other delimiters for a while.
class TDelimiterScope {
public:
    explicit TDelimiterScope(TStrings& strings)
        : FStrings(strings), FDelimiter(std::exchange(strings.Delimiter, u',')),
          FQuote(std::exchange(strings.QuoteChar, u'"')), FStrict(std::exchange(strings.StrictDelimiter, false)) {}
    ~TDelimiterScope() {
        FStrings.Delimiter = FDelimiter;
        FStrings.QuoteChar = FQuote;
        FStrings.StrictDelimiter = FStrict;
    }
    TDelimiterScope(const TDelimiterScope&) = delete;
    TDelimiterScope& operator=(const TDelimiterScope&) = delete;

private:
    TStrings& FStrings;
    char16_t FDelimiter;
    char16_t FQuote;
    bool FStrict;
};

} // namespace

const TClassInfo& TStrings::StaticClass() {
    static const TClassInfo info = DescribeClass<TStrings>(
        u"TStrings", TPersistent::StaticClass(), {Property<&TStrings::GetLines, &TStrings::SetLines>(u"Strings")});
    return info;
}

void TStrings::IndexError(int index) {
    throw EListError(u"List index out of bounds (" + IntToStr(index) + u")");
}

void TStrings::CheckIndex(int index) const {
    if (index < 0 || index >= GetCount())
        IndexError(index);
}

void TStrings::Put(int index, const String& text) {
    TObject* object = GetItemObject(index);
    Delete(index);
    InsertObject(index, text, object);
}

TObject* TStrings::GetItemObject(int index) const {
    CheckIndex(index);
    return nullptr;
}

void TStrings::PutObject(int index, TObject*) {
    CheckIndex(index);
}

int TStrings::Add(const String& text) {
    return AddObject(text, nullptr);
}

int TStrings::AddObject(const String& text, TObject* object) {
    const int index = GetCount();
    InsertObject(index, text, object);
    return index;
}

void TStrings::AddStrings(const TStrings& strings) {
    WithinUpdate(*this, [&] {
        // The count is taken once: a list may be added to itself.
        const int count = strings.GetCount();
        for (int i = 0; i < count; ++i)
            AddObject(strings.Get(i), strings.GetItemObject(i));
    });
}

void TStrings::InsertObject(int index, const String& text, TObject* object) {
    Insert(index, text);
    if (object)
        PutObject(index, object);
}

void TStrings::Exchange(int first, int second) {
    CheckIndex(first);
    CheckIndex(second);
    WithinUpdate(*this, [&] {
        const String text = Get(first);
        TObject* object = GetItemObject(first);
        TObject* otherObject = GetItemObject(second);
        Put(first, Get(second));
        PutObject(first, otherObject);
        Put(second, text);
        PutObject(second, object);
    });
}

void TStrings::Move(int from, int to) {
    CheckIndex(from);
    CheckIndex(to);
    if (from == to)
        return;
    WithinUpdate(*this, [&] {
        const String text = Get(from);
        TObject* object = GetItemObject(from);
        Delete(from);
        InsertObject(to, text, object);
    });
}

int TStrings::CompareStrings(StringView left, StringView right) const {
    return AnsiCompareText(left, right);
}

int TStrings::IndexOf(StringView text) const {
    const int count = GetCount();
    for (int i = 0; i < count; ++i) {
        if (CompareStrings(Get(i), text) == 0)
            return i;
    }
    return -1;
}

int TStrings::IndexOfName(StringView name) const {
    const int count = GetCount();
    for (int i = 0; i < count; ++i) {
        const String text = Get(i);
        const std::size_t separator = text.find(NameValueSeparator);
        if (separator != String::npos && CompareStrings(StringView(text).substr(0, separator), name) == 0)
            return i;
    }
    return -1;
}

int TStrings::IndexOfObject(const TObject* object) const {
    const int count = GetCount();
    for (int i = 0; i < count; ++i) {
        if (GetItemObject(i) == object)
            return i;
    }
    return -1;
}

bool TStrings::Equals(const TStrings& other) const {
    const int count = GetCount();
    if (count != other.GetCount())
        return false;
    for (int i = 0; i < count; ++i) {
        if (Get(i) != other.Get(i))
            return false;
    }
    return true;
}

String TStrings::GetItemName(int index) const {
    const String text = Get(index);
    const std::size_t separator = text.find(NameValueSeparator);
    return separator == String::npos ? String() : text.substr(0, separator);
}

String TStrings::GetValueFromIndex(int index) const {
    const String text = Get(index);
    const std::size_t separator = text.find(NameValueSeparator);
    return separator == String::npos ? String() : text.substr(separator + 1);
}

String TStrings::GetValue(StringView name) const {
    const int index = IndexOfName(name);
    return index < 0 ? String() : GetValueFromIndex(index);
}

void TStrings::SetValue(StringView name, const String& value) {
    const int index = IndexOfName(name);
    if (value.empty()) {
        if (index >= 0)
            Delete(index);
        return;
    }
    const String line = String(name) + NameValueSeparator + value;
    if (index < 0)
        Add(line);
    else
        Put(index, line);
}

void TStrings::SetValueFromIndex(int index, const String& value) {
    if (index < 0) {
        if (!value.empty())
            Add(NameValueSeparator + value);
    } else if (value.empty()) {
        Delete(index);
    } else {
        Put(index, GetItemName(index) + NameValueSeparator + value);
    }
}

String TStrings::GetTextStr() const {
    String text;
    const int count = GetCount();
    for (int i = 0; i < count; ++i)
        text.append(Get(i)).append(u"\r\n");
    return text;
}

void TStrings::SetTextStr(const String& text) {
    SetLines(SplitLines(text));
}

String TStrings::GetDelimitedText() const {
    const int count = GetCount();
    const bool canQuote = QuoteChar != u'\0';
    if (count == 1 && Get(0).empty() && canQuote) // otherwise it could not be told from an empty list
        return String(2, QuoteChar);
    String text;
    for (int i = 0; i < count; ++i) {
        const String item = Get(i);
        const bool needsQuotes =
            canQuote && std::ranges::any_of(item, [this](char16_t unit) {
                return unit == QuoteChar || unit == Delimiter || (!StrictDelimiter && IsBlank(unit));
            });
        if (i > 0)
            text += Delimiter;
        text += needsQuotes ? InQuotes(item, QuoteChar) : item;
    }
    return text;
}

void TStrings::SetDelimitedText(const String& text) {
    SetLines(TDelimitedReader(text, *this).Read());
}

String TStrings::GetCommaText() const {
    const TDelimiterScope scope(const_cast<TStrings&>(*this));
    return GetDelimitedText();
}

void TStrings::SetCommaText(const String& text) {
    std::vector<String> lines;
    {
        const TDelimiterScope scope(*this);
        lines = TDelimitedReader(text, *this).Read();
    }
    SetLines(lines);
}

std::vector<String> TStrings::GetLines() const {
    std::vector<String> lines;
    const int count = GetCount();
    lines.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        lines.push_back(Get(i));
    return lines;
}

void TStrings::SetLines(const std::vector<String>& lines) {
    WithinUpdate(*this, [&] {
        Clear();
        for (const String& line : lines)
            Add(line);
    });
}

void TStrings::BeginUpdate() {
    if (FUpdateCount == 0)
        SetUpdateState(true);
    ++FUpdateCount;
}

void TStrings::EndUpdate() {
    if (FUpdateCount > 0 && --FUpdateCount == 0)
        SetUpdateState(false);
}

void TStrings::SetUpdateState(bool) {
}

void TStrings::Assign(TPersistent* source) {
    const auto* strings = As<TStrings>(source);
    if (!strings) {
        TPersistent::Assign(source);
        return;
    }
    if (strings == this)
        return;
    WithinUpdate(*this, [&] {
        Clear();
        Delimiter = strings->Delimiter;
        QuoteChar = strings->QuoteChar;
        StrictDelimiter = strings->StrictDelimiter;
        NameValueSeparator = strings->NameValueSeparator;
        AddStrings(*strings);
    });
}

// The list in memory

const TClassInfo& TStringList::StaticClass() {
    static const TClassInfo info = DescribeClass<TStringList>(u"TStringList", TStrings::StaticClass());
    return info;
}

TStringList::~TStringList() {
    OnChange = nullptr;
    OnChanging = nullptr;
    TStringList::Clear();
}

void TStringList::Changing() {
    if (!OnChanging || IsUpdating())
        return;
    const TNotifyEvent handler = OnChanging; // it may reassign the event or free the list
    handler(this);
}

void TStringList::Changed() {
    if (!OnChange || IsUpdating())
        return;
    const TNotifyEvent handler = OnChange; // it may reassign the event or free the list
    handler(this);
}

void TStringList::SetUpdateState(bool updating) {
    if (updating)
        Changing();
    else
        Changed();
}

void TStringList::CheckUnsorted() const {
    if (FSorted)
        throw EListError(u"Operation not allowed on sorted list");
}

String TStringList::Get(int index) const {
    CheckIndex(index);
    return String(TextOf(ItemAt(index)));
}

void TStringList::Put(int index, const String& text) {
    CheckUnsorted();
    CheckIndex(index);
    Changing();
    TItem& item = ItemAt(index);
    FUsed -= item.Length;
    if (text.size() <= item.Length) {
        item.Length = static_cast<std::uint32_t>(text.size());
        std::ranges::copy(text, FTexts.begin() + item.Start);
    } else {
        const TItem longer = MakeItem(text, item.Object);
        item = longer;
    }
    FUsed += item.Length;
    DropUnusedTexts();
    Changed();
}

TObject* TStringList::GetItemObject(int index) const {
    CheckIndex(index);
    return ItemAt(index).Object;
}

void TStringList::PutObject(int index, TObject* object) {
    CheckIndex(index);
    Changing();
    ItemAt(index).Object = object;
    Changed();
}

/// An item that is not in the list yet; its text is in FTexts, unused until then.
TStringList::TItem TStringList::MakeItem(const String& text, TObject* object) {
    const std::size_t start = FTexts.size();
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - start)
        throw EListError(u"The list cannot take more text");
    FTexts += text;
    return {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(text.size()), object};
}

/// Moves the texts together once most of FTexts belongs to lines that have gone.
void TStringList::DropUnusedTexts() {
    constexpr std::size_t kWorthwhile = 1024; // units
    if (FTexts.size() - FUsed < std::max(FUsed, kWorthwhile))
        return;
    String texts;
    texts.reserve(FUsed);
    for (TItem& item : FItems) {
        const StringView text = TextOf(item);
        item.Start = static_cast<std::uint32_t>(texts.size());
        texts += text;
    }
    FTexts = std::move(texts);
}

int TStringList::AddObject(const String& text, TObject* object) {
    int index = GetCount();
    if (FSorted && Find(text, index) && !TakesDuplicate())
        return index;
    InsertItem(index, text, object);
    return index;
}

bool TStringList::TakesDuplicate() const {
    if (Duplicates == dupError)
        throw EListError(u"String list does not allow duplicates");
    return Duplicates == dupAccept;
}

void TStringList::AddStrings(const TStrings& strings) {
    if (!FSorted) {
        TStrings::AddStrings(strings);
        return;
    }
    std::vector<TItem> items;
    const int count = strings.GetCount();
    for (int i = 0; i < count; ++i)
        items.push_back(MakeItem(strings.Get(i), strings.GetItemObject(i)));
    AddSorted(std::move(items));
}

void TStringList::SetLines(const std::vector<String>& lines) {
    if (!FSorted) {
        TStrings::SetLines(lines);
        return;
    }
    std::vector<TItem> items;
    for (const String& line : lines)
        items.push_back(MakeItem(line, nullptr));
    ReplaceItems(Fresh(std::move(items), false));
}

/// Sorted, and without those that may not come in; `beside` those that are there, or in their place.
std::vector<TStringList::TItem> TStringList::Fresh(std::vector<TItem> items, bool beside) const {
    std::ranges::stable_sort(items, SortOrder());
    std::vector<TItem> fresh;
    for (const TItem& item : items) {
        int index = 0;
        const bool isThere =
            (beside && Find(TextOf(item), index)) || (!fresh.empty() && !SortOrder()(fresh.back(), item));
        if (!isThere || TakesDuplicate())
            fresh.push_back(item);
    }
    return fresh;
}

/// One by one, each would move half of those that are there.
void TStringList::AddSorted(std::vector<TItem> items) {
    const std::vector<TItem> fresh = Fresh(std::move(items), true);
    if (fresh.empty())
        return;
    Changing();
    const auto middle = static_cast<std::ptrdiff_t>(FItems.size());
    FItems.insert(FItems.end(), fresh.begin(), fresh.end());
    for (const TItem& item : fresh)
        FUsed += item.Length;
    std::inplace_merge(FItems.begin(), FItems.begin() + middle, FItems.end(), SortOrder());
    Changed();
}

void TStringList::Insert(int index, const String& text) {
    InsertObject(index, text, nullptr);
}

void TStringList::InsertObject(int index, const String& text, TObject* object) {
    CheckUnsorted();
    if (index < 0 || index > GetCount())
        IndexError(index);
    InsertItem(index, text, object);
}

void TStringList::InsertItem(int index, const String& text, TObject* object) {
    Changing();
    FItems.insert(FItems.begin() + index, MakeItem(text, object));
    FUsed += text.size();
    Changed();
}

void TStringList::Delete(int index) {
    CheckIndex(index);
    Changing();
    const TItem item = ItemAt(index);
    FItems.erase(FItems.begin() + index);
    FUsed -= item.Length;
    DropUnusedTexts();
    if (OwnsObjects)
        delete item.Object;
    Changed();
}

void TStringList::Clear() {
    if (!FItems.empty())
        ReplaceItems({});
}

void TStringList::ReplaceItems(std::vector<TItem> items) {
    Changing();
    const std::vector<TItem> gone = std::exchange(FItems, std::move(items));
    FUsed = 0;
    for (const TItem& item : FItems)
        FUsed += item.Length;
    DropUnusedTexts();
    if (OwnsObjects) {
        for (const TItem& item : gone)
            delete item.Object;
    }
    Changed();
}

void TStringList::Exchange(int first, int second) {
    CheckUnsorted();
    CheckIndex(first);
    CheckIndex(second);
    Changing();
    std::swap(ItemAt(first), ItemAt(second));
    Changed();
}

void TStringList::Move(int from, int to) {
    CheckUnsorted();
    CheckIndex(from);
    CheckIndex(to);
    if (from == to)
        return;
    Changing();
    // Not by way of Delete, which would free an owned object.
    if (from < to)
        std::rotate(FItems.begin() + from, FItems.begin() + from + 1, FItems.begin() + to + 1);
    else
        std::rotate(FItems.begin() + to, FItems.begin() + from, FItems.begin() + from + 1);
    Changed();
}

int TStringList::CompareStrings(StringView left, StringView right) const {
    return FCaseSensitive ? CompareStr(left, right) : AnsiCompareText(left, right);
}

int TStringList::PlaceOf(StringView text) const {
    const auto place =
        std::ranges::partition_point(FItems, [&](const TItem& item) { return CompareStrings(TextOf(item), text) < 0; });
    return static_cast<int>(place - FItems.begin());
}

bool TStringList::Find(StringView text, int& index) const {
    if (!FSorted)
        throw EListError(u"Operation not allowed on unsorted list");
    index = PlaceOf(text);
    return index < GetCount() && CompareStrings(TextOf(ItemAt(index)), text) == 0;
}

int TStringList::IndexOf(StringView text) const {
    if (FSorted) {
        int index = 0;
        return Find(text, index) ? index : -1;
    }
    const auto found =
        std::ranges::find_if(FItems, [&](const TItem& item) { return CompareStrings(TextOf(item), text) == 0; });
    return found == FItems.end() ? -1 : static_cast<int>(found - FItems.begin());
}

void TStringList::SetSorted(bool value) {
    if (FSorted == value)
        return;
    if (!value) {
        FSorted = false;
        return;
    }
    Changing();
    SortItems();
    FSorted = true;
    Changed();
}

void TStringList::SetCaseSensitive(bool value) {
    if (FCaseSensitive == value)
        return;
    FCaseSensitive = value;
    if (FSorted)
        Sort();
}

void TStringList::SortItems() {
    std::ranges::stable_sort(FItems, SortOrder());
}

void TStringList::Sort() {
    Changing();
    SortItems();
    Changed();
}

void TStringList::CustomSort(const std::function<int(const TStringList& list, int first, int second)>& compare) {
    CheckUnsorted();
    // The list stays as it is while it is compared; only then its items take their new places.
    std::vector<int> order(FItems.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, [&](int first, int second) { return compare(*this, first, second) < 0; });
    Changing();
    std::vector<TItem> sorted;
    sorted.reserve(FItems.size());
    for (const int index : order)
        sorted.push_back(ItemAt(index));
    FItems = std::move(sorted);
    Changed();
}

} // namespace framework
