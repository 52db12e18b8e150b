// What the pages of an engine's view need, and what they offer.

#include "enginepage.h"
#include "engineview.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QBuffer>
#include <QFileInfo>

#include <algorithm>

namespace VOXI {

namespace {

QByteArray typeOf(const WebContent& content)
{
    const std::string& type = content.type();
    const bool isPlain =
        std::all_of(type.begin(), type.end(), [](char c) { return c >= ' ' && c < 127; });
    return isPlain ? QByteArray::fromStdString(type) : QByteArray("application/octet-stream");
}

void reply(QWebEngineUrlRequestJob& job, const QByteArray& type, const QByteArray& bytes)
{
    auto* const buffer = new QBuffer;
    buffer->setData(bytes);
    buffer->open(QIODevice::ReadOnly);
    QObject::connect(&job, &QObject::destroyed, buffer, &QObject::deleteLater);
    job.reply(type, buffer);
}

} // namespace

// What pages need ---------------------------------------------------------------------------------

bool EngineView::mayLoad(const QUrl& url) const
{
    const QString scheme = url.scheme();
    if (m_host.isOfProgram(url))
        return true;
    if (scheme == QLatin1String("data") || scheme == QLatin1String("blob")
        || scheme == QLatin1String("about"))
        return true;
    if (scheme == QLatin1String("file") || scheme == QLatin1String("qrc"))
        return m_host.mayRead(url);
    const bool isNetwork = scheme == QLatin1String("http") || scheme == QLatin1String("https")
                           || scheme == QLatin1String("ws") || scheme == QLatin1String("wss");
    return isNetwork && m_host.settings().hasNetworkAccess;
}

void EngineView::serve(QWebEngineUrlRequestJob* job)
{
    const QUrl url = job->requestUrl();
    if (!m_textPage.isEmpty() && url.adjusted(QUrl::RemoveFragment) == m_textPage) {
        reply(*job, "text/html; charset=utf-8", m_text);
        return;
    }
    const unsigned token = ++m_tokens;
    const auto wanted = std::make_shared<std::atomic<bool>>(true);
    m_jobs[token] = {job, wanted};
    connect(job, &QObject::destroyed, this, [this, token, wanted] {
        *wanted = false;
        m_jobs.erase(token);
    });
    const std::string method = Detail::utf8FromQString(QString::fromLatin1(job->requestMethod()));
    later([this, token, wanted, url, method] {
        if (!*wanted)
            return;
        const WebQuery2 query(peer()->getUID(), token, toStdWString(url.toString()), method,
                              wanted);
        WebContent given;
        const QtDeletionHold hold(peer());
        const WebQuery2::Reply answered = m_host.askForContent(query, given);
        if (hold.isAlive() && answered != WebQuery2::Reply::Later)
            takeContent(token, given);
    });
}

void EngineView::takeContent(unsigned token, const WebContent& content)
{
    const auto found = m_jobs.find(token);
    if (found == m_jobs.end())
        return;
    const QPointer<QWebEngineUrlRequestJob> job = found->second.m_job;
    m_jobs.erase(found);
    if (!job)
        return;
    if (content.isEmpty()) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    const ByteArray& bytes = content.bytes();
    reply(*job, typeOf(content), QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

// Downloads ---------------------------------------------------------------------------------------

void EngineView::slotDownload(QWebEngineDownloadRequest* download)
{
    if (download->page() != m_page.get())
        return;
    // One whose connection breaks the engine begins anew by itself, a few times.
    for (const auto& [id, known] : m_downloads) {
        if (known.m_number == download->id())
            return accept(download, id, known.m_place);
    }
    const WebDownload offered{.id = ++m_tokens,
                              .address = toStdWString(download->url().toString()),
                              .name = toStdWString(download->suggestedFileName()),
                              .type = Detail::utf8FromQString(download->mimeType()),
                              .size = download->totalBytes()};
    const QtDeletionHold hold(peer());
    const QPointer<QWebEngineDownloadRequest> kept(download);
    const QString place = m_host.placeFor(offered);
    if (!kept)
        return;
    if (hold.isAlive() && !place.isEmpty())
        accept(download, offered.id, place);
    else
        download->cancel();
}

void EngineView::accept(QWebEngineDownloadRequest* download, unsigned id, const QString& place)
{
    m_downloads.insert_or_assign(id, Download{download, download->id(), place});
    const QFileInfo file(place);
    download->setDownloadDirectory(file.absolutePath());
    download->setDownloadFileName(file.fileName());
    connect(download, &QWebEngineDownloadRequest::receivedBytesChanged, this, [this, id, download] {
        later([this, id, received = download->receivedBytes(), size = download->totalBytes()] {
            m_host.downloadIs(id, received, size);
        });
    });
    connect(download, &QWebEngineDownloadRequest::stateChanged, this,
            [this, id](QWebEngineDownloadRequest::DownloadState state) {
                slotDownloadState(id, state);
            });
    download->accept();
}

void EngineView::slotDownloadState(unsigned id, QWebEngineDownloadRequest::DownloadState state)
{
    using D = QWebEngineDownloadRequest;
    WebDownloadEnd end = WebDownloadEnd::Failed;
    if (state == D::DownloadCompleted)
        end = WebDownloadEnd::Done;
    else if (state == D::DownloadCancelled)
        end = WebDownloadEnd::Cancelled;
    else if (state != D::DownloadInterrupted)
        return;
    if (m_downloads.erase(id) > 0)
        later([this, id, end] { m_host.downloadIsOver(id, end); });
}

void EngineView::cancelDownload(unsigned id)
{
    if (const auto found = m_downloads.find(id);
        found != m_downloads.end() && found->second.m_request)
        found->second.m_request->cancel();
}

} // namespace VOXI
