// Another program for tests of the clipboard, of plain Qt. Says on its output what happens.
//
//     clipboardpartner offer <format> <size>   offers so many bytes, and the text "offered"
//     clipboardpartner dying <format>          ends itself when it is asked for its data
//     clipboardpartner losing <format>         lets another program copy when it is asked
//     clipboardpartner read <format>           says the size and the sum of what lies there

#include <QApplication>
#include <QClipboard>
#include <QCryptographicHash>
#include <QMimeData>
#include <QProcess>

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace {

void say(const QString& text)
{
    std::printf("%s\n", qUtf8Printable(text));
    std::fflush(stdout);
}

QByteArray manyBytes(qsizetype size)
{
    QByteArray bytes(size, '\0');
    for (qsizetype i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i * 31 / 7);
    return bytes;
}

class Data : public QMimeData
{
public:
    Data(const QString& role, const QString& format) : m_role(role), m_format(format) {}

    QStringList formats() const override { return {m_format}; }
    bool hasFormat(const QString& format) const override { return format == m_format; }

protected:
    QVariant retrieveData(const QString&, QMetaType) const override
    {
        if (m_role == QLatin1String("dying"))
            std::raise(SIGKILL);
        QProcess copy;
        copy.start(QStringLiteral("xclip"),
                   {QStringLiteral("-selection"), QStringLiteral("clipboard")});
        copy.write("taken");
        copy.closeWriteChannel();
        copy.waitForFinished();
        return QByteArray("late");
    }

private:
    const QString m_role;
    const QString m_format;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3)
        return 2;
    const QString& role = arguments[1];
    const QString& format = arguments[2];
    QClipboard& clipboard = *QApplication::clipboard();
    if (role == QLatin1String("read")) {
        const QByteArray bytes = clipboard.mimeData()->data(format);
        const QByteArray sum = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
        say(QStringLiteral("read %1 %2").arg(bytes.size()).arg(QString::fromLatin1(sum)));
        return 0;
    }
    QMimeData* data = nullptr;
    if (role == QLatin1String("offer")) {
        data = new QMimeData;
        data->setData(format, manyBytes(arguments.value(3).toLongLong()));
        data->setText(QStringLiteral("offered"));
    } else {
        data = new Data(role, format);
    }
    clipboard.setMimeData(data);
    say(QStringLiteral("ready"));
    return QApplication::exec();
}
