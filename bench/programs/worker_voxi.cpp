// A worker that counts the primes, tells how far it is, and ends when its user likes.

#include "qthost/qthost.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxprogressbar2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxhandle.h"

#include <thread>

using namespace VOXI;

bool isPrime(int number)
{
    for (int divisor = 2; divisor * divisor <= number; ++divisor)
        if (number % divisor == 0)
            return false;
    return number > 1;
}

int main(int argc, char** argv)
{
    constexpr int Limit = 5'000'000;
    QtHost host(argc, argv);
    VXWindow2 window("Primes");
    auto* page = new VXPanel2(&window);
    auto* column = new VXBoxLayout2(page, Direction::TopToBottom);
    auto* found = new VXText2(page);
    auto* progress = new VXProgressBar2(page);
    auto* stop = new VXButton2("&Stop", page);
    column->addWidget(found);
    column->addWidget(progress);
    column->addWidget(stop);
    progress->setMaximum(Limit);
    window.setCentralWidget(page);
    window.show();

    std::jthread worker(
        [found = VXHandle(found), progress = VXHandle(progress)](const std::stop_token& token) {
            int count = 0;
            for (int number = 0; number <= Limit && !token.stop_requested(); ++number) {
                count += isPrime(number);
                if (number % 10'000 == 0) {
                    found->setText(std::to_string(count) + " primes");
                    progress->setValue(number);
                }
            }
        });
    stop->clicked().connect(stop, [&worker] { worker.request_stop(); });
    return host.exec();
}
