#include "TestRegistry.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return TestRegistry::runAll(argc, argv);
}
