#include "BenchmarkLimits.h"

#include <QApplication>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    if (benchmark::RunSpecifiedBenchmarks() == 0)
        return 2;
    return BenchmarkLimits::wereKept() ? 0 : 1;
}
