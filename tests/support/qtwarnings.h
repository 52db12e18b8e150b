#pragma once

#include <QString>

namespace VOXI {

/// Fails the running test for every Qt warning, critical or fatal message that no
/// ExpectedQtWarning has declared. Called once by the test main.
void failOnQtWarnings();

/// Declares a Qt warning for a scope: messages that match the expression pass, and unless it only
/// `MayCome` the test fails when none came by the end of the scope.
class ExpectedQtWarning
{
public:
    enum Certainty { MustCome, MayCome };

    explicit ExpectedQtWarning(const char* expression, Certainty certainty = MustCome);
    ~ExpectedQtWarning();

    ExpectedQtWarning(const ExpectedQtWarning&) = delete;
    ExpectedQtWarning& operator=(const ExpectedQtWarning&) = delete;

    /// How many messages have matched so far.
    int count() const;

private:
    const int m_id;
    const Certainty m_certainty;
};

} // namespace VOXI
