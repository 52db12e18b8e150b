#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace SQL {

/// What went wrong with a database, said so that a user can be shown it. Texts are UTF-8.
class Error : public std::runtime_error
{
public:
    enum class Kind {
        NotFound,      ///< no such file, or it is a folder or no regular file
        NotReadable,   ///< the system does not let us
        NotADatabase,  ///< another kind of file
        Encrypted,     ///< no header, and bytes as if at random
        WrongPageSize, ///< a header with a page size that cannot be
        Truncated,     ///< shorter than the header says
        Corrupt,       ///< damaged in another way
        ReadOnly,      ///< the file, or how it was opened, lets nothing be written
        Busy,          ///< locked by someone else; nothing was lost, the same may be tried again
        Constraint,    ///< what a constraint of the table does not let in
        Cancelled,     ///< by the token that was given
        Full,          ///< the disk, or a limit
        Other          ///< a fault in the SQL, and all else
    };

    explicit Error(Kind kind, const std::string& message)
        : std::runtime_error(message),
          m_kind(kind)
    {}

    Kind kind() const noexcept { return m_kind; }
    /// Whether the same may succeed when it is tried again.
    bool isBusy() const noexcept { return m_kind == Kind::Busy; }
    bool isCancelled() const noexcept { return m_kind == Kind::Cancelled; }
    /// Where in the SQL text that was given, in bytes; -1 when that is not known.
    int position() const noexcept { return m_position; }
    /// The names of the columns that a constraint names; none when it names none.
    const std::vector<std::string>& columns() const noexcept { return m_columns; }

    void setPosition(int position) noexcept { m_position = position; }
    void setColumns(std::vector<std::string> columns) { m_columns = std::move(columns); }

private:
    Kind m_kind;
    int m_position = -1;
    std::vector<std::string> m_columns;
};

} // namespace SQL
