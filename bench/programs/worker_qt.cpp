// A worker that counts the primes, tells how far it is, and ends when its user likes.

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <thread>

bool isPrime(int number)
{
    for (int divisor = 2; divisor * divisor <= number; ++divisor)
        if (number % divisor == 0)
            return false;
    return number > 1;
}

/// Carries what the worker has to say to the thread of the widgets.
class Reporter : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void advanced(int number, int count);
};

int main(int argc, char** argv)
{
    constexpr int Limit = 5'000'000;
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Primes"));
    auto* page = new QWidget(&window);
    auto* column = new QVBoxLayout(page);
    auto* found = new QLabel(page);
    auto* progress = new QProgressBar(page);
    auto* stop = new QPushButton(QStringLiteral("&Stop"), page);
    column->addWidget(found);
    column->addWidget(progress);
    column->addWidget(stop);
    progress->setMaximum(Limit);
    window.setCentralWidget(page);
    window.show();

    Reporter reporter;
    QObject::connect(&reporter, &Reporter::advanced, page, [=](int number, int count) {
        found->setText(QStringLiteral("%1 primes").arg(count));
        progress->setValue(number);
    });
    std::jthread worker([&reporter](const std::stop_token& token) {
        int count = 0;
        for (int number = 0; number <= Limit && !token.stop_requested(); ++number) {
            count += isPrime(number);
            if (number % 10'000 == 0)
                Q_EMIT reporter.advanced(number, count);
        }
    });
    QObject::connect(stop, &QPushButton::clicked, stop, [&worker] { worker.request_stop(); });
    return QApplication::exec();
}

#include "worker_qt.moc"
