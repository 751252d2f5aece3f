#include "Command.h"

#include <cstdio>
#include <QCoreApplication>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    out.setCodec("UTF-8");
    err.setCodec("UTF-8");
    QTextStream in(stdin);
    in.setCodec("UTF-8");
    Streams streams{out, err, &in};
    return runAdmin(QCoreApplication::arguments().mid(1), streams);
}
