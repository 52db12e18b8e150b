#include "accessclient.h"

#include "support/realinput.h"

#include <QAccessible>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace VOXI {

namespace {

const char* const AccessibleInterface = "org.a11y.atspi.Accessible";
const char* const ActionInterface = "org.a11y.atspi.Action";
const char* const Root = "/org/a11y/atspi/accessible/root";
constexpr int MostChildren = 100;
constexpr int MostLevels = 40;

QVariant valueOf(const QDBusMessage& reply)
{
    const QVariant first = reply.arguments().value(0);
    return first.userType() == qMetaTypeId<QDBusVariant>() ? first.value<QDBusVariant>().variant()
                                                           : first;
}

struct Reference
{
    QString program;
    QDBusObjectPath path;
};

const QDBusArgument& operator>>(const QDBusArgument& argument, Reference& reference)
{
    argument.beginStructure();
    argument >> reference.program >> reference.path;
    argument.endStructure();
    return argument;
}

QList<Reference> referencesIn(const QDBusMessage& reply)
{
    QList<Reference> all;
    if (reply.type() != QDBusMessage::ReplyMessage)
        return all;
    const auto argument = reply.arguments().value(0).value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        Reference each;
        argument >> each;
        all.append(each);
    }
    argument.endArray();
    return all;
}

quint64 statesIn(const QDBusMessage& reply)
{
    quint64 states = 0;
    if (reply.type() != QDBusMessage::ReplyMessage)
        return states;
    const auto halves = qdbus_cast<QList<uint>>(reply.arguments().value(0));
    for (int i = 0; i < halves.size(); ++i)
        states |= quint64(halves[i]) << (32 * i);
    return states;
}

QStringList actionsIn(const QDBusMessage& reply)
{
    QStringList names;
    if (reply.type() != QDBusMessage::ReplyMessage)
        return names;
    const auto argument = reply.arguments().value(0).value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        QString name, description, keys;
        argument.beginStructure();
        argument >> name >> description >> keys;
        argument.endStructure();
        names.append(name);
    }
    argument.endArray();
    return names;
}

} // namespace

QString Spoken::line() const
{
    return QString(2 * depth, u' ') + role + QStringLiteral(" \"") + name + QStringLiteral("\" ")
           + QString::number(states, 16) + u' ' + actions.join(u',');
}

AccessClient::AccessClient()
{
    QDBusConnection session =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("voxi session"));
    const QDBusMessage address = session.call(QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
    m_bus =
        QDBusConnection::connectToBus(valueOf(address).toString(), QStringLiteral("voxi access"));
    for (const char* const member : {"StateChanged", "TextChanged", "ChildrenChanged"})
        m_bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
                      QLatin1String(member), this, SLOT(hear(QDBusMessage)));
    const auto registry = [](const char* path, const char* interface, const char* method) {
        return QDBusMessage::createMethodCall(QStringLiteral("org.a11y.atspi.Registry"),
                                              QLatin1String(path), QLatin1String(interface),
                                              QLatin1String(method));
    };
    QDBusMessage wish =
        registry("/org/a11y/atspi/registry", "org.a11y.atspi.Registry", "RegisterEvent");
    wish << QStringLiteral("Object:");
    const bool isThere = waitFor(
        [&] {
            const QDBusMessage top = registry(Root, AccessibleInterface, "GetChildren");
            const QList<Reference> programs = referencesIn(ask({top}).front());
            m_program = programs.isEmpty() ? QString() : programs.front().program;
            return !m_program.isEmpty();
        },
        Patience);
    const QDBusMessage heard = ask({wish}).front();
    if (!isThere)
        m_error = QStringLiteral("no program is registered: ") + address.errorMessage();
    else if (heard.type() == QDBusMessage::ErrorMessage)
        m_error = heard.errorMessage();
}

AccessClient::~AccessClient()
{
    QDBusConnection::disconnectFromBus(QStringLiteral("voxi access"));
    QDBusConnection::disconnectFromBus(QStringLiteral("voxi session"));
}

QString AccessClient::pathOf(QWidget* widget)
{
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(widget);
    return QStringLiteral("/org/a11y/atspi/accessible/")
           + QString::number(interface ? QAccessible::uniqueId(interface) : 0);
}

std::vector<Spoken> AccessClient::read(QWidget* root)
{
    std::vector<std::vector<Spoken>> levels{{Spoken{.path = pathOf(root)}}};
    std::vector<std::vector<std::size_t>> parents{{0}};
    while (!levels.back().empty() && levels.size() < MostLevels) {
        readLevel(levels.back());
        std::vector<Spoken> below;
        std::vector<std::size_t> above;
        const auto children = childrenOf(levels.back());
        for (std::size_t i = 0; i < children.size(); ++i) {
            for (const Spoken& each : children[i]) {
                below.push_back(each);
                above.push_back(i);
            }
        }
        levels.push_back(std::move(below));
        parents.push_back(std::move(above));
    }
    std::vector<Spoken> all;
    const std::function<void(std::size_t, std::size_t)> add = [&](std::size_t level,
                                                                  std::size_t index) {
        all.push_back(levels[level][index]);
        if (level + 1 == levels.size())
            return;
        for (std::size_t i = 0; i < levels[level + 1].size(); ++i) {
            if (parents[level + 1][i] == index)
                add(level + 1, i);
        }
    };
    add(0, 0);
    return all;
}

bool AccessClient::isReachedFromTop(const QString& path)
{
    QString at = path;
    for (int i = 0; i < MostLevels && at != QLatin1String(Root); ++i) {
        const QDBusMessage above = ask({property(at, "Parent")}).front();
        if (above.type() != QDBusMessage::ReplyMessage)
            return false;
        Reference parent;
        valueOf(above).value<QDBusArgument>() >> parent;
        const QDBusMessage children =
            ask({call(parent.path.path(), AccessibleInterface, "GetChildren")}).front();
        const QList<Reference> siblings = referencesIn(children);
        if (std::ranges::none_of(siblings,
                                 [&](const Reference& each) { return each.path.path() == at; }))
            return false;
        at = parent.path.path();
    }
    return at == QLatin1String(Root);
}

void AccessClient::act(const Spoken& what, const QString& action)
{
    const int index = static_cast<int>(what.actions.indexOf(action));
    m_bus.asyncCall(call(what.path, ActionInterface, "DoAction", {index}));
}

void AccessClient::setValue(const QString& path, double value)
{
    ask({call(path, "org.freedesktop.DBus.Properties", "Set",
              {QStringLiteral("org.a11y.atspi.Value"), QStringLiteral("CurrentValue"),
               QVariant::fromValue(QDBusVariant(value))})});
}

void AccessClient::setText(const QString& path, const QString& text)
{
    ask({call(path, "org.a11y.atspi.EditableText", "SetTextContents", {text})});
}

void AccessClient::selectRow(const QString& path, int row)
{
    ask({call(path, "org.a11y.atspi.Table", "AddRowSelection", {row})});
}

QString AccessClient::textOf(const QString& path)
{
    return valueOf(ask({call(path, "org.a11y.atspi.Text", "GetText", {0, -1})}).front()).toString();
}

void AccessClient::hear(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    const QVariant last = arguments.value(3).value<QDBusVariant>().variant();
    m_heard.append(QStringList{message.path(), message.member(), arguments.value(0).toString(),
                               QString::number(arguments.value(1).toInt()), last.toString()}
                       .join(u' '));
}

// Helpers -----------------------------------------------------------------------------------------

QDBusMessage AccessClient::call(const QString& path, const char* interface, const char* method,
                                const QVariantList& arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_program, path, QLatin1String(interface),
                                                          QLatin1String(method));
    message.setArguments(arguments);
    return message;
}

QDBusMessage AccessClient::property(const QString& path, const char* name) const
{
    return call(path, "org.freedesktop.DBus.Properties", "Get",
                {QString::fromLatin1(AccessibleInterface), QString::fromLatin1(name)});
}

/// All at once: it is answered in this order.
std::vector<QDBusMessage> AccessClient::ask(const std::vector<QDBusMessage>& questions)
{
    std::vector<QDBusPendingCall> calls;
    for (const QDBusMessage& each : questions)
        calls.push_back(m_bus.asyncCall(each));
    QEventLoop loop;
    QTimer::singleShot(Patience, &loop, &QEventLoop::quit);
    const QDBusPendingCallWatcher last(calls.back());
    connect(&last, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!last.isFinished())
        loop.exec();
    std::vector<QDBusMessage> replies;
    for (const QDBusPendingCall& each : calls)
        replies.push_back(each.isFinished() ? each.reply() : QDBusMessage());
    return replies;
}

void AccessClient::readLevel(std::vector<Spoken>& level)
{
    constexpr std::size_t asked = 6;
    std::vector<QDBusMessage> questions;
    for (const Spoken& each : level) {
        questions.push_back(call(each.path, AccessibleInterface, "GetRoleName"));
        questions.push_back(property(each.path, "Name"));
        questions.push_back(property(each.path, "Description"));
        questions.push_back(property(each.path, "ChildCount"));
        questions.push_back(call(each.path, AccessibleInterface, "GetState"));
        questions.push_back(call(each.path, ActionInterface, "GetActions"));
    }
    const auto replies = ask(questions);
    for (std::size_t i = 0; i < level.size(); ++i) {
        const QDBusMessage* const answers = &replies[i * asked];
        Spoken& each = level[i];
        each.role = valueOf(answers[0]).toString();
        each.name = valueOf(answers[1]).toString();
        each.description = valueOf(answers[2]).toString();
        each.childCount = valueOf(answers[3]).toInt();
        each.states = statesIn(answers[4]);
        each.actions = actionsIn(answers[5]);
    }
}

std::vector<std::vector<Spoken>> AccessClient::childrenOf(const std::vector<Spoken>& level)
{
    std::vector<QDBusMessage> questions;
    std::vector<std::size_t> asked;
    for (std::size_t i = 0; i < level.size(); ++i) {
        if (level[i].childCount == 0 || level[i].childCount > MostChildren)
            continue;
        questions.push_back(call(level[i].path, AccessibleInterface, "GetChildren"));
        asked.push_back(i);
    }
    std::vector<std::vector<Spoken>> all(level.size());
    if (questions.empty())
        return all;
    const auto replies = ask(questions);
    for (std::size_t i = 0; i < asked.size(); ++i) {
        for (const Reference& each : referencesIn(replies[i]))
            all[asked[i]].push_back({.path = each.path.path(), .depth = level[asked[i]].depth + 1});
    }
    return all;
}

} // namespace VOXI
