#pragma once

#include <QHash>
#include <QString>
#include <QUrl>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>

#include <memory>
#include <vector>

namespace VOXI {

class EngineView;

/// Where views keep cookies and the like: one of its own for each view, in memory; or by a name,
/// on disk, for all that have it.
///
/// What pages ask for comes here without a word of whose page it is. The view notes what its page
/// is about to ask for, and gets it.
class EngineProfile final : public QWebEngineUrlSchemeHandler
{
    Q_OBJECT

public:
    static std::shared_ptr<EngineProfile> of(const QString& name);
    explicit EngineProfile(const QString& name);
    ~EngineProfile() override;

    QWebEngineProfile& profile() { return *m_profile; }

    void join(EngineView& view) { m_views.push_back(&view); }
    void leave(EngineView& view);
    /// Whether any of its views may.
    bool mayLoad(const QUrl& url) const;
    void note(const QUrl& url, EngineView& view);

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    std::unique_ptr<QWebEngineProfile> m_profile;
    std::unique_ptr<QWebEngineUrlRequestInterceptor> m_guard;
    std::vector<EngineView*> m_views;
    QMultiHash<QUrl, EngineView*> m_noted;
};

} // namespace VOXI
