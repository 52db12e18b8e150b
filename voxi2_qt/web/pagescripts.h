#pragma once

#include <QString>

QT_BEGIN_NAMESPACE
class QWebEngineScript;
QT_END_NAMESPACE

namespace VOXI {

// What runs in pages before anything of their own.

/// Gives the page `voxi.send` and `voxi.onmessage`.
QWebEngineScript messageScript();
/// Has the page hear a text.
QString messageTo(const QString& text);

/// Shows the page with a style sheet, in place of that of the last call.
QWebEngineScript styleScript(const QString& css);
QString styleCode(const QString& css);

/// Takes from pages what they call others with: that leads to a network past all guards.
QWebEngineScript withoutCalls();

/// The script that says what another one gives, or throws, in a text.
QString tellingScript(const QString& script);

} // namespace VOXI
