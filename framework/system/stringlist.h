#pragma once

// Lists of texts, each with an object if one is given: the lines of a memo, the choices of a list. TStrings is what all
// of them offer; a control keeps its lines where the platform wants them. TStringList keeps them in memory.

#include "framework/system/published.h"

#include <iosfwd>

namespace framework {

/// A list of texts with 0-based indexes. An index outside raises EListError "List index out of bounds (n)".
class TStrings : public TPersistent {
    FRAMEWORK_CLASS(TStrings)

public:
    FRAMEWORK_READ_PROPERTY(int, Count, GetCount);
    FRAMEWORK_PROPERTY(String, Strings[], Get, Put);
    FRAMEWORK_PROPERTY(TObject*, Objects[], GetItemObject, PutObject);
    FRAMEWORK_READ_PROPERTY(String, Names[], GetItemName);
    FRAMEWORK_PROPERTY(String, Values[], GetValue, SetValue);
    FRAMEWORK_PROPERTY(String, ValueFromIndex[], GetValueFromIndex, SetValueFromIndex);
    FRAMEWORK_PROPERTY(String, Text, GetTextStr, SetTextStr);
    FRAMEWORK_PROPERTY(String, CommaText, GetCommaText, SetCommaText);
    FRAMEWORK_PROPERTY(String, DelimitedText, GetDelimitedText, SetDelimitedText);

    /// Between the items of DelimitedText.
    char16_t Delimiter = u',';
    /// Around the items of DelimitedText that need it; NUL for none.
    char16_t QuoteChar = u'"';
    /// DelimitedText is cut at Delimiter alone; otherwise blanks and control characters separate too.
    bool StrictDelimiter = false;
    /// Between the name and the value of a line such as "Name=Value".
    char16_t NameValueSeparator = u'=';

    virtual String Get(int index) const = 0;
    /// Replaces a text; its object stays.
    virtual void Put(int index, const String& text);
    virtual int GetCount() const = 0;
    /// The object of a line, null for none. The list does not own it unless the class says so.
    virtual TObject* GetItemObject(int index) const;
    virtual void PutObject(int index, TObject* object);

    /// Adds at the end, or where the order of a sorted list wants it; the index of the new line.
    virtual int Add(const String& text);
    virtual int AddObject(const String& text, TObject* object);
    /// Adds all lines of `strings` with their objects.
    virtual void AddStrings(const TStrings& strings);
    /// Puts a line before the one at `index`; an index equal to Count adds it at the end.
    virtual void Insert(int index, const String& text) = 0;
    virtual void InsertObject(int index, const String& text, TObject* object);
    virtual void Delete(int index) = 0;
    virtual void Clear() = 0;
    virtual void Exchange(int first, int second);
    virtual void Move(int from, int to);

    /// The first line with this text, or -1. Letter case counts only where the class says so.
    virtual int IndexOf(StringView text) const;
    /// The first line "name=...", or -1.
    virtual int IndexOfName(StringView name) const;
    virtual int IndexOfObject(const TObject* object) const;
    /// True when both have the same lines, letter by letter.
    bool Equals(const TStrings& other) const;

    String GetItemName(int index) const;
    /// What stands behind "name=" in the first such line; empty when there is none.
    String GetValue(StringView name) const;
    /// Changes or adds the line "name=value"; an empty value deletes it.
    void SetValue(StringView name, const String& value);
    String GetValueFromIndex(int index) const;
    /// As SetValue; with an index of -1 a line without a name is added.
    void SetValueFromIndex(int index, const String& value);

    /// All lines, each ended by CR LF.
    virtual String GetTextStr() const;
    /// Cuts the text at CR LF, LF and CR.
    virtual void SetTextStr(const String& text);
    /// The lines separated by commas; those with blanks, commas or quotes stand in double quotes.
    String GetCommaText() const;
    void SetCommaText(const String& text);
    String GetDelimitedText() const;
    void SetDelimitedText(const String& text);
    std::vector<String> GetLines() const;
    /// Replaces all lines; their objects go.
    virtual void SetLines(const std::vector<String>& lines);

    /// Replaces everything by the text of a stream: UTF-8, or UTF-16 with its byte order mark. EConvertError for bytes
    /// that are neither; nothing has changed then.
    virtual void LoadFromStream(std::istream& stream);
    /// Writes the text as UTF-8 without a mark.
    virtual void SaveToStream(std::ostream& stream) const;
    /// The same with a file. EFOpenError and EFCreateError when it cannot be opened, EWriteError when the disk is full.
    void LoadFromFile(const String& fileName);
    void SaveToFile(const String& fileName) const;

    /// Between the two, which can be nested, changes are not announced or shown; one announcement follows at the end.
    /// WithinUpdate (updates.h) calls both around a piece of work.
    void BeginUpdate();
    void EndUpdate();

    /// Takes over the lines, objects and delimiters of another TStrings.
    void Assign(TPersistent* source) override;

protected:
    /// The order and equality of lines. The default ignores the case of letters.
    virtual int CompareStrings(StringView left, StringView right) const;
    /// Called when the outermost update begins and ends.
    virtual void SetUpdateState(bool updating);
    bool IsUpdating() const { return FUpdateCount > 0; }
    /// Raises EListError unless the index is in 0..Count-1.
    void CheckIndex(int index) const;
    [[noreturn]] static void IndexError(int index);

private:
    int FUpdateCount = 0;
};

/// What a sorted list does with a text that it has already.
enum TDuplicates {
    dupIgnore, ///< it is not added; Add gives the index of the present one
    dupError,  ///< EListError
    dupAccept, ///< it is added
};

/// A list of texts in memory.
class TStringList : public TStrings {
    FRAMEWORK_CLASS(TStringList)

public:
    FRAMEWORK_PROPERTY(bool, Sorted, GetSorted, SetSorted);
    FRAMEWORK_PROPERTY(bool, CaseSensitive, GetCaseSensitive, SetCaseSensitive);

    /// Observed by Add of a sorted list; an unsorted one takes everything.
    TDuplicates Duplicates = dupIgnore;
    /// Objects are freed with their line.
    bool OwnsObjects = false;

    TStringList() = default;
    ~TStringList() override;

    bool GetSorted() const { return FSorted; }
    /// A sorted list puts each new text in its place; Insert, Put, Exchange and Move raise EListError.
    void SetSorted(bool value);
    bool GetCaseSensitive() const { return FCaseSensitive; }
    void SetCaseSensitive(bool value);

    String Get(int index) const override;
    void Put(int index, const String& text) override;
    int GetCount() const override { return static_cast<int>(FItems.size()); }
    TObject* GetItemObject(int index) const override;
    void PutObject(int index, TObject* object) override;

    int AddObject(const String& text, TObject* object) override;
    /// A sorted list takes all at once, in time n log n; with dupError it takes all or none.
    void AddStrings(const TStrings& strings) override;
    /// As AddStrings, after the present lines have gone.
    void SetLines(const std::vector<String>& lines) override;
    void Insert(int index, const String& text) override;
    void InsertObject(int index, const String& text, TObject* object) override;
    void Delete(int index) override;
    void Clear() override;
    void Exchange(int first, int second) override;
    void Move(int from, int to) override;
    int IndexOf(StringView text) const override;

    /// In a sorted list: true when the text is there; `index` is its (first) place or the one where it belongs.
    /// EListError when the list is not sorted.
    bool Find(StringView text, int& index) const;
    /// Sorts once by text; equal texts keep their order.
    void Sort();
    /// Sorts once by a comparison of the lines at two indexes: negative, 0 or positive.
    void CustomSort(const std::function<int(const TStringList& list, int first, int second)>& compare);

    TNotifyEvent OnChange;   ///< after a change, or once after an update
    TNotifyEvent OnChanging; ///< before a change, or once before an update; must leave the list as it is

protected:
    int CompareStrings(StringView left, StringView right) const override;
    void SetUpdateState(bool updating) override;
    virtual void Changed();
    virtual void Changing();

private:
    /// Where in FTexts the text of a line stands. A list of many short texts so takes a fraction of the memory, and one
    /// allocation in place of one for each.
    struct TItem {
        std::uint32_t Start = 0;
        std::uint32_t Length = 0;
        TObject* Object = nullptr;
    };

    void CheckUnsorted() const;
    TItem& ItemAt(int index) { return FItems[static_cast<std::size_t>(index)]; }
    const TItem& ItemAt(int index) const { return FItems[static_cast<std::size_t>(index)]; }
    StringView TextOf(const TItem& item) const { return StringView(FTexts).substr(item.Start, item.Length); }
    auto SortOrder() const {
        return
            [this](const TItem& left, const TItem& right) { return CompareStrings(TextOf(left), TextOf(right)) < 0; };
    }
    bool TakesDuplicate() const;
    TItem MakeItem(const String& text, TObject* object);
    void DropUnusedTexts();
    std::vector<TItem> Fresh(std::vector<TItem> items, bool beside) const;
    void AddSorted(std::vector<TItem> items);
    void ReplaceItems(std::vector<TItem> items);
    void SortItems();
    int PlaceOf(StringView text) const;
    void InsertItem(int index, const String& text, TObject* object);

    std::vector<TItem> FItems;
    String FTexts;         // of all lines, and of some that have gone
    std::size_t FUsed = 0; // units of FTexts that belong to lines
    bool FSorted = false;
    bool FCaseSensitive = false;
};

} // namespace framework
