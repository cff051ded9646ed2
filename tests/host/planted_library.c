/* A library under the name of ours that somebody has put into a folder of chart files. */
#if defined(_WIN32)
#define EXPORTED __declspec(dllexport)
#else
#define EXPORTED __attribute__((visibility("default")))
#endif

EXPORTED double planted(void) { return 666.0; }
