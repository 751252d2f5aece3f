// Creates the clusters that the programs of a run copy, so that not each of them has to fill its own.

#include "PrivateCluster.h"
#include "TestStore.h"

#include <QCoreApplication>
#include <QDir>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (PrivateCluster::originals().isEmpty())
        qFatal("VRK_TEST_CLUSTERS names no folder");
    QDir(PrivateCluster::originals()).removeRecursively();
    TestStore::leaveOriginals();
    return 0;
}
