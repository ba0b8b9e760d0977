// A plugin without DllGetVersion.
#include <cstdint>

extern "C" __attribute__((visibility("default"))) int32_t PluginSaysYes()
{
    return 1;
}
