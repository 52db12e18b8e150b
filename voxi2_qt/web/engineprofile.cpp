#include "engineprofile.h"

#include "engineview.h"
#include "voxi2/controls/vxwebbrowser2.h"

#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestJob>

#include <algorithm>
#include <map>

namespace VOXI {

namespace {

/// For what no page asks for, but a worker that outlives it.
class ProfileGuard final : public QWebEngineUrlRequestInterceptor
{
public:
    explicit ProfileGuard(const EngineProfile& profile) : m_profile(profile) {}

    void interceptRequest(QWebEngineUrlRequestInfo& info) override
    {
        if (!m_profile.mayLoad(info.requestUrl()))
            info.block(true);
    }

private:
    const EngineProfile& m_profile;
};

} // namespace

std::shared_ptr<EngineProfile> EngineProfile::of(const QString& name)
{
    if (name.isEmpty())
        return std::make_shared<EngineProfile>(name);
    static auto* const named = new std::map<QString, std::weak_ptr<EngineProfile>>;
    std::weak_ptr<EngineProfile>& kept = (*named)[name];
    std::shared_ptr<EngineProfile> profile = kept.lock();
    if (!profile)
        kept = profile = std::make_shared<EngineProfile>(name);
    return profile;
}

EngineProfile::EngineProfile(const QString& name)
    : m_profile(name.isEmpty() ? new QWebEngineProfile : new QWebEngineProfile(name)),
      m_guard(std::make_unique<ProfileGuard>(*this))
{
    m_profile->setUrlRequestInterceptor(m_guard.get());
    for (const std::string& scheme : VXWebBrowser2::fixedSchemes())
        m_profile->installUrlSchemeHandler(QByteArray::fromStdString(scheme), this);
}

/// Before the base ends: the profile knows it.
EngineProfile::~EngineProfile()
{
    m_profile->removeAllUrlSchemeHandlers();
    m_profile->setUrlRequestInterceptor(nullptr);
    m_profile.reset();
}

void EngineProfile::leave(EngineView& view)
{
    std::erase(m_views, &view);
    m_noted.removeIf([&](const auto& each) { return each.value() == &view; });
}

bool EngineProfile::mayLoad(const QUrl& url) const
{
    return std::any_of(m_views.begin(), m_views.end(),
                       [&](const EngineView* view) { return view->mayLoad(url); });
}

void EngineProfile::note(const QUrl& url, EngineView& view)
{
    // What is answered out of the engine's memory never gets here.
    constexpr qsizetype Most = 1000;
    if (m_views.size() < 2 || m_noted.size() >= Most)
        m_noted.clear();
    m_noted.insert(url.adjusted(QUrl::RemoveFragment), &view);
}

void EngineProfile::requestStarted(QWebEngineUrlRequestJob* job)
{
    EngineView* const view = m_noted.take(job->requestUrl().adjusted(QUrl::RemoveFragment));
    if (view)
        view->serve(job);
    else if (!m_views.empty())
        m_views.front()->serve(job);
    else
        job->fail(QWebEngineUrlRequestJob::RequestAborted);
}

} // namespace VOXI
