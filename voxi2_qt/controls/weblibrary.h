#pragma once

#include <QtGlobal>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

class WebView;
class WebViewHost;

/// Makes what shows the pages of a web browser, by the engine's library, which is loaded with the
/// first; where that is missing, by what shows the pages of text browsers, and a warning says so
/// once. GUI thread.
std::unique_ptr<WebView> makeWebView(WebViewHost& host, QWidget* parent);

} // namespace VOXI

/// What that library is asked for.
extern "C" Q_DECL_EXPORT VOXI::WebView* voxi2_qt_makeWebView(VOXI::WebViewHost* host,
                                                             QWidget* parent);
