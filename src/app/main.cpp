// veldor: the desktop program.
#include "ui/application.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QStringList>

#include <sys/socket.h>
#include <unistd.h>
#include <csignal>

namespace {

int signalPipe[2] = {-1, -1};

void OnSignal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication qapp(argc, argv);
    QApplication::setApplicationName("VELDOR");
    veldor::Application app;

    // SIGTERM and SIGINT close the program as its window does, so that a logout never leaves
    // the rig under CAT control.
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalPipe) == 0) {
        auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, &qapp);
        QObject::connect(notifier, &QSocketNotifier::activated, [&app] {
            char byte;
            [[maybe_unused]] const auto got = ::read(signalPipe[0], &byte, 1);
            app.closeForSignal();
        });
        std::signal(SIGTERM, OnSignal);
        std::signal(SIGINT, OnSignal);
    }

    // The one command-line option, "/CONFIG=name".
    QStringList arguments = QApplication::arguments();
    arguments.removeFirst();
    if (!app.start(arguments.join(' '))) return 0;
    return QApplication::exec();
}
