#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QWidget>

#include <vector>

namespace VOXI {

/// What is read of one thing on the screen.
struct Spoken
{
    QString path{};
    QString role{};
    QString name{};
    QString description{};
    quint64 states = 0;
    QStringList actions{};
    int depth = 0;
    int childCount = 0;

    /// Numbers of the protocol.
    enum State {
        Editable = 7,
        Enabled = 8,
        Focusable = 11,
        Focused = 12,
        Selected = 23,
        Showing = 25
    };
    bool is(State state) const { return states >> state & 1; }
    /// One line, indented by its depth.
    QString line() const;
};

/// What another program sees of this one: all of it comes over the accessibility bus. Calls run the
/// event loop, in which this program answers.
class AccessClient : public QObject
{
    Q_OBJECT

public:
    AccessClient();
    ~AccessClient() override;

    /// Empty if this program is to be found there.
    QString error() const { return m_error; }

    static QString pathOf(QWidget* widget);
    /// All below a widget and itself, as it is read. Of lists, tables and such with very many
    /// children not these.
    std::vector<Spoken> read(QWidget* root);
    /// From what lies in a widget up to the program.
    bool isReachedFromTop(const QString& path);

    /// Does not wait for what becomes of it.
    void act(const Spoken& what, const QString& action);
    void setValue(const QString& path, double value);
    void setText(const QString& path, const QString& text);
    void selectRow(const QString& path, int row);
    /// All that can be read of a text by its own interface.
    QString textOf(const QString& path);

    /// What has been told since the last call of `forget`, as "path member detail number text".
    const QStringList& heard() const { return m_heard; }
    void forget() { m_heard.clear(); }

private Q_SLOTS:
    void hear(const QDBusMessage& message);

private:
    QDBusMessage call(const QString& path, const char* interface, const char* method,
                      const QVariantList& arguments = {}) const;
    QDBusMessage property(const QString& path, const char* name) const;
    std::vector<QDBusMessage> ask(const std::vector<QDBusMessage>& questions);
    void readLevel(std::vector<Spoken>& level);
    std::vector<std::vector<Spoken>> childrenOf(const std::vector<Spoken>& level);

    QDBusConnection m_bus{QString()};
    QString m_program; ///< its name on the bus
    QString m_error;
    QStringList m_heard;
};

} // namespace VOXI
