#include "framework/db/odbcsession.h"

#include "framework/db/connectionstring.h"
#include "framework/db/databaseerrors.h"
#include "framework/db/odbc.h"
#include "framework/system/strings.h"

#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <array>
#include <cstring>
#include <utility>

namespace framework {

namespace {

SQLWCHAR* Wide(const char16_t* text) {
    static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text));
}

/// A number in the place where ODBC wants a pointer.
SQLPOINTER Number(std::uintptr_t value) {
    return reinterpret_cast<SQLPOINTER>(value);
}

/// Under Wine the drivers are those of the host, which know files by the host's names alone.
String WithHostFileName(StringView connectionString) {
    String result(connectionString);
#ifdef _WIN32
    using TUnixName = char*(CDECL*)(const WCHAR*);
    const auto toUnixName = reinterpret_cast<TUnixName>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    const std::optional<String> file = ConnectionValue(connectionString, u"Database");
    const bool isFile = file && file->size() > 2 && (*file)[1] == u':' && ((*file)[2] == u'\\' || (*file)[2] == u'/');
    if (!toUnixName || !isFile)
        return result;
    if (char* name = toUnixName(reinterpret_cast<const WCHAR*>(file->c_str()))) {
        result = StringReplace(result, *file, Utf8Decode(name));
        HeapFree(GetProcessHeap(), 0, name);
    }
#endif
    return result;
}

} // namespace

TOdbcHandle::TOdbcHandle(short kind, void* parent) : FKind(kind) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &FHandle)))
        throw EDatabaseError(u"The ODBC driver manager gives no handle");
    if (kind == SQL_HANDLE_ENV)
        SQLSetEnvAttr(FHandle, SQL_ATTR_ODBC_VERSION, Number(SQL_OV_ODBC3), 0);
}

TOdbcHandle::~TOdbcHandle() {
    SQLFreeHandle(FKind, FHandle);
}

// The connection.

TOdbcSession::TOdbcSession(StringView connectionString)
    : FConnectionString(CompleteConnectionString(WithHostFileName(connectionString))),
      FEnvironment(SQL_HANDLE_ENV, nullptr), FConnection(SQL_HANDLE_DBC, FEnvironment.Get()) {
    constexpr char16_t purpose[] = u"open the connection";
    Check(SQLDriverConnectW(Handle(), nullptr, Wide(FConnectionString.c_str()),
                            static_cast<SQLSMALLINT>(FConnectionString.size()), nullptr, 0, nullptr,
                            SQL_DRIVER_NOPROMPT),
          FConnection, purpose);
    FDatabaseName = InfoText(SQL_DBMS_NAME);
    FQuote = InfoText(SQL_IDENTIFIER_QUOTE_CHAR);
    const String name = UpperCase(FDatabaseName);
    if (Pos(u"SQLITE", name) > 0)
        FKind = TDatabaseKind::SQLite;
    else if (Pos(u"POSTGRES", name) > 0)
        FKind = TDatabaseKind::PostgreSQL;
    SQLUINTEGER extensions = 0;
    SQLGetInfoW(Handle(), SQL_GETDATA_EXTENSIONS, &extensions, sizeof(extensions), nullptr);
    FReadsLongValuesInBlocks = (extensions & SQL_GD_BLOCK) != 0 && (extensions & SQL_GD_BOUND) != 0;
}

TOdbcSession::~TOdbcSession() {
    if (FTransactions > 0)
        SQLEndTran(SQL_HANDLE_DBC, Handle(), SQL_ROLLBACK);
    SQLDisconnect(Handle());
}

String TOdbcSession::InfoText(unsigned short type) const {
    std::array<char16_t, 128> text{};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(Handle(), type, text.data(), sizeof(text) - sizeof(char16_t), &bytes)))
        return {};
    return text.data();
}

bool TOdbcSession::CharsAreUtf8() {
    if (FCharsAreUtf8)
        return *FCharsAreUtf8;
    FCharsAreUtf8 = false;
#ifdef _WIN32
    // Where a program has a locale, as it does here, this driver goes the way through UTF-16 itself and then back.
    if (FKind == TDatabaseKind::PostgreSQL)
        return false;
#endif
    // Only these two are known to let a parameter stand alone.
    if (FKind == TDatabaseKind::Other)
        return false;
    TOdbcStatement statement(*this, u"try the encoding of texts");
    const String sample = u"\u017C\U0001F600";
    statement.Run({u"SELECT CAST(? AS varchar(10))", {{sample, adVarWChar}}});
    if (!statement.Fetch())
        return false;
    try {
        std::string bytes;
        FCharsAreUtf8 = statement.ReadLong(0, SQL_C_CHAR, bytes) && bytes == Utf8Encode(sample);
    } catch (const EDatabaseServerError&) {
        // The driver converts, and cannot in this locale.
    }
    return *FCharsAreUtf8;
}

char TOdbcSession::MoneyPoint() {
    if (FMoneyPoint)
        return *FMoneyPoint;
    TOdbcStatement statement(*this, u"ask how the server writes money");
    statement.Run({u"SELECT CAST(CAST(CAST(1 AS numeric) AS money) AS text)", {}});
    FMoneyPoint = '\0';
    const String sample = statement.Fetch() ? statement.GetText(0).value_or(String()) : String();
    const std::size_t one = sample.find(u'1');
    if (one != String::npos && one + 2 < sample.size() && sample[one + 2] == u'0')
        FMoneyPoint = static_cast<char>(sample[one + 1]);
    return *FMoneyPoint;
}

void TOdbcSession::SetAutoCommit(bool on, StringView purpose) {
    Check(SQLSetConnectAttrW(Handle(), SQL_ATTR_AUTOCOMMIT, Number(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF),
                             SQL_IS_UINTEGER),
          FConnection, purpose);
}

void TOdbcSession::CheckFree() const {
    if (FFetching && FKind == TDatabaseKind::SQLite)
        throw EDatabaseError(u"The connection is busy fetching records");
}

void TOdbcSession::BeginTransaction() {
    CheckFree();
    if (FTransactions == 0)
        SetAutoCommit(false, u"begin a transaction");
    ++FTransactions;
}

void TOdbcSession::EndTransaction(bool commit) {
    FPartFailed = FPartFailed || !commit;
    if (--FTransactions > 0)
        return;
    if (std::exchange(FPartFailed, false)) {
        Undo();
        if (commit)
            throw EDatabaseError(u"The transaction was undone, because a part of it failed");
        return;
    }
    constexpr char16_t purpose[] = u"commit the transaction";
    try {
        Check(SQLEndTran(SQL_HANDLE_DBC, Handle(), SQL_COMMIT), FConnection, purpose);
    } catch (...) {
        Undo();
        throw;
    }
    SetAutoCommit(true, purpose);
}

void TOdbcSession::Undo() noexcept {
    // When this fails the connection is gone, and the database undoes by itself what was not committed.
    const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, Handle(), SQL_ROLLBACK);
    if (!SQL_SUCCEEDED(result) && FKind == TDatabaseKind::SQLite) {
        // SQLite itself has undone it, as it does when the disk is full, and its driver does not know. It needs one
        // that it can end.
        try {
            TOdbcStatement(*this, u"undo the transaction").Run({u"BEGIN TRANSACTION", {}});
        } catch (const EDatabaseError&) {
            return;
        }
        SQLEndTran(SQL_HANDLE_DBC, Handle(), SQL_ROLLBACK);
    }
    SQLSetConnectAttrW(Handle(), SQL_ATTR_AUTOCOMMIT, Number(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER);
}

void TOdbcSession::Check(short result, const TOdbcHandle& handle, StringView purpose) const {
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA)
        Raise(handle, purpose);
}

void TOdbcSession::Raise(const TOdbcHandle& handle, StringView purpose) const {
    std::string state = "HY000";
    String text;
    std::int32_t native = 0;
    for (SQLSMALLINT record = 1; record <= 5; ++record) {
        std::array<char16_t, 6> recordState{};
        std::array<char16_t, 1024> message{};
        SQLINTEGER code = 0;
        SQLSMALLINT length = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(handle.Kind(), handle.Get(), record, Wide(recordState.data()), &code,
                                          Wide(message.data()), static_cast<SQLSMALLINT>(message.size()), &length)))
            break;
        if (record == 1) {
            state = Utf8Encode(recordState.data());
            native = code;
        } else {
            text += u"; ";
        }
        text += Trim(message.data());
    }
    if (text.empty())
        text = u"the driver does not say why";
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttrW(Handle(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof(dead), nullptr);
    throw EDatabaseServerError(purpose, state, native, WithoutPasswords(text, FConnectionString), dead == SQL_CD_TRUE);
}

TOdbcTransaction::TOdbcTransaction(TOdbcSession& session) : FSession(session) {
    FSession.BeginTransaction();
}

TOdbcTransaction::~TOdbcTransaction() {
    if (FOpen)
        FSession.EndTransaction(false);
}

void TOdbcTransaction::Commit() {
    FOpen = false;
    FSession.EndTransaction(true);
}

} // namespace framework
