// What one variant of the device library for tests needs beside it.

#if defined(_WIN32)
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C" __attribute__((visibility("default")))
#endif

EXPORTED int AnotherLibrary();

int AnotherLibrary()
{
    return 4711;
}
