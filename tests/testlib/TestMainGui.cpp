#include "TestLoad.h"
#include "TestRegistry.h"

#include <QApplication>

#include <dlfcn.h>
#include <link.h>

#include <cstring>

/// Under the sanitizer, keeps every library loaded but the one under test. What a driver holds until the end
/// of the process could otherwise not be told from a leak: once its library is unloaded, nobody knows whose
/// memory it was.
extern "C" __attribute__((visibility("default"))) int dlclose(void *handle)
{
    const link_map *map = nullptr;
    const bool isKnown = dlinfo(handle, RTLD_DI_LINKMAP, &map) == 0 && map != nullptr;
    if (TestLoad::isSanitized() && (!isKnown || std::strstr(map->l_name, "roomadjustment") == nullptr))
        return 0;
    using Close = int (*)(void *);
    return reinterpret_cast<Close>(dlsym(RTLD_NEXT, "dlclose"))(handle);
}

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    return TestRegistry::runAll(argc, argv);
}
