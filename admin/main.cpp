#include "Command.h"

#include <cstdio>
#include <QCoreApplication>
#include <unistd.h>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    QTextStream in(stdin);
    for (QTextStream* stream : {&out, &err, &in})
        setUtf8(stream);
    Streams streams{out, err, &in, isatty(STDERR_FILENO) != 0};
    return runAdmin(QCoreApplication::arguments().mid(1), streams);
}
