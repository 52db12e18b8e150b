#include "pagescripts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QWebEngineScript>

namespace VOXI {

namespace {

/// The text as a script writes it.
QString literal(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

QWebEngineScript made(const char* name, const QString& code,
                      QWebEngineScript::ScriptWorldId world = QWebEngineScript::MainWorld)
{
    QWebEngineScript script;
    script.setName(QLatin1String(name));
    script.setSourceCode(code);
    script.setWorldId(world);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setRunsOnSubFrames(true);
    return script;
}

} // namespace

/// The transport is that of Qt's channel, whose protocol is spoken here as far as it goes: a
/// message calls a function of the one object there is.
QWebEngineScript messageScript()
{
    QWebEngineScript script = made("voxi-messages", QStringLiteral(R"js((() => {
    const transport = window.qt && qt.webChannelTransport;
    if (!transport)
        return;
    transport.onmessage = () => {};
    const call = transport.send.bind(transport);
    const early = [];
    let receiver = null;
    Object.defineProperty(window, 'voxi', {value: Object.freeze({
        send(text) {
            call(JSON.stringify({type: 6, object: 'program', method: 'send', id: 0,
                                 args: [String(text)]}));
        },
        hear(text) { receiver ? receiver(text) : early.push(text); },
        get onmessage() { return receiver; },
        set onmessage(value) {
            receiver = typeof value === 'function' ? value : null;
            while (receiver && early.length)
                receiver(early.shift());
        },
    })});
})())js"));
    script.setRunsOnSubFrames(false);
    return script;
}

QString messageTo(const QString& text)
{
    return QStringLiteral("window.voxi && voxi.hear(%1)").arg(literal(text));
}

/// In a world of its own, where the page's rules for styles do not hold.
QWebEngineScript styleScript(const QString& css)
{
    return made("voxi-style", styleCode(css), QWebEngineScript::ApplicationWorld);
}

QString styleCode(const QString& css)
{
    return QStringLiteral(R"js((css => {
    const sheet = new CSSStyleSheet;
    sheet.replaceSync(css);
    const others = [...document.adoptedStyleSheets].filter(each => each !== window.voxiSheet);
    document.adoptedStyleSheets = [...others, sheet];
    window.voxiSheet = sheet;
})(%1))js")
        .arg(literal(css));
}

QWebEngineScript withoutCalls()
{
    return made("voxi-calls",
                QStringLiteral("for (const name of ['RTCPeerConnection', "
                               "'webkitRTCPeerConnection'])\n"
                               "    Object.defineProperty(window, name, {value: undefined})"));
}

/// By `eval`, which gives the last value of any script; a page that forbids it says so by another
/// error than the script's own, and then has it run as it is.
QString tellingScript(const QString& script)
{
    return QStringLiteral(R"js((() => {
    try {
        const value = (0, eval)(%1);
        if (value === undefined || value === null)
            return '-';
        switch (typeof value) {
        case 'string': return 's' + value;
        case 'boolean': return 'b' + value;
        case 'number': return 'n' + JSON.stringify(value);
        case 'bigint': return 's' + value;
        }
        const text = JSON.stringify(value);
        return text === undefined ? '-' : 'j' + text;
    } catch (error) {
        if (error instanceof EvalError)
            return 'x';
        try { return 'e' + error; } catch (other) { return 'e'; }
    }
})())js")
        .arg(literal(script));
}

} // namespace VOXI
