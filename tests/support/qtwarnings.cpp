#include "support/qtwarnings.h"

#include <QRegularExpression>

#include <cstdio>
#include <gtest/gtest.h>
#include <map>
#include <mutex>

namespace VOXI {

namespace {

struct Expectation
{
    QRegularExpression expression;
    int count = 0;
};

// Messages come from any thread, expectations from the test's.
struct Expectations
{
    std::mutex mutex;
    std::map<int, Expectation> byId;
    int lastId = 0;
};

Expectations& expectations()
{
    static Expectations instance;
    return instance;
}

// What a platform without a window manager says about itself is no fault of the code under test.
bool isAboutThePlatform(const QString& text)
{
    return text.startsWith(QLatin1String("This plugin does not support "));
}

bool isExpected(const QString& text)
{
    Expectations& all = expectations();
    const std::lock_guard lock(all.mutex);
    bool found = false;
    for (auto& [id, expectation] : all.byId) {
        if (expectation.expression.match(text).hasMatch()) {
            ++expectation.count;
            found = true;
        }
    }
    return found;
}

void handleMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtDebugMsg || type == QtInfoMsg) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(text));
        return;
    }
    if (isAboutThePlatform(text) || isExpected(text))
        return;
    ADD_FAILURE() << "unexpected Qt message: " << qUtf8Printable(text);
}

} // namespace

void failOnQtWarnings() { qInstallMessageHandler(handleMessage); }

ExpectedQtWarning::ExpectedQtWarning(const char* expression, Certainty certainty)
    : m_id([expression] {
          Expectations& all = expectations();
          const std::lock_guard lock(all.mutex);
          all.byId[++all.lastId].expression.setPattern(QString::fromUtf8(expression));
          return all.lastId;
      }()),
      m_certainty(certainty)
{}

ExpectedQtWarning::~ExpectedQtWarning()
{
    Expectation own;
    {
        Expectations& all = expectations();
        const std::lock_guard lock(all.mutex);
        own = all.byId.extract(m_id).mapped();
    }
    if (own.count == 0 && m_certainty == MustCome)
        ADD_FAILURE() << "expected Qt message did not come: "
                      << qUtf8Printable(own.expression.pattern());
}

int ExpectedQtWarning::count() const
{
    Expectations& all = expectations();
    const std::lock_guard lock(all.mutex);
    return all.byId.at(m_id).count;
}

} // namespace VOXI
