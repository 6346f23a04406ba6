#pragma once

// From the driver's buffers into columns. Most values come as texts and are read here: drivers turn what they do not
// understand into zeros without a word, and SQLite's declared types promise nothing about the values.

#include "framework/db/columnstore.h"
#include "framework/db/odbcsession.h"
#include "framework/db/recordset.h"

#include <array>

namespace framework {

/// How a column of a result is read.
struct TColumnPlan {
    TColumnInfo Info;
    /// As the driver names the type, in lower case.
    String ServerType;
    /// The driver knows nothing of the type, so the values themselves decide.
    bool ByValues = false;
};

/// What the driver says about the columns of a prepared or executed statement, without what only its catalogue knows.
std::vector<TColumnPlan> PlanColumns(const TOdbcStatement& statement, std::span<const TOdbcColumn> columns);

/// Reads the rows of an executed statement into a store. Where values turn out not to be what the plan says, the plan
/// is changed and the statement executed again; that ends because a plan can only become more general.
class TOdbcReader {
public:
    TOdbcReader(TOdbcStatement& statement, std::vector<TColumnPlan>& plans);
    ~TOdbcReader();

    TRowStore ReadAll(const TFetchProgress& progress = {});

private:
    struct TBuffer;
    struct TAgain {};

    TRowStore ReadOnce();
    void ReadBlocks(TRowStore& rows);
    void ReadSingly(TRowStore& rows);
    void BindBuffers();
    void UnbindBuffers();
    void PutBlock(TRowStore& rows, int firstRow, int count);
    void PutLongValues(TRowStore& rows, const TBuffer& buffer, int firstRow, int count);
    void Put(TColumnStore& column, const TBuffer& buffer, int row, std::string_view bytes);
    [[noreturn]] void Generalise(int column);
    void JudgeByValues(TRowStore& rows);
    void Report(int rows, bool atEnd = false);

    TOdbcStatement& FStatement;
    std::vector<TColumnPlan>& FPlans;
    std::vector<TBuffer> FBuffers;
    bool FInBlocks = true;
    std::array<int, 3> FAboutToday{};
    char FMoneyPoint = '\0';
    const TFetchProgress* FProgress = nullptr;
    std::int64_t FCount = -1;
    int FReported = 0;
    int FTold = 0;
};

} // namespace framework
