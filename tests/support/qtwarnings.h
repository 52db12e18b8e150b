#pragma once

#include <QString>

namespace VOXI {

/// Fails the running test for every Qt warning, critical or fatal message that no
/// ExpectedQtWarning has declared. Called once by the test main.
void failOnQtWarnings();

/// Declares a Qt warning for a scope: messages that match the expression pass, and the test fails
/// when none came by the end of the scope.
class ExpectedQtWarning
{
public:
    explicit ExpectedQtWarning(const char* expression);
    ~ExpectedQtWarning();

    ExpectedQtWarning(const ExpectedQtWarning&) = delete;
    ExpectedQtWarning& operator=(const ExpectedQtWarning&) = delete;

    /// How many messages have matched so far.
    int count() const;

private:
    const int m_id;
};

} // namespace VOXI
