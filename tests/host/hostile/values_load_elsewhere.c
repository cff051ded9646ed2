/* A host that loads the values library from a thread that is not its main one, and under a
 * floating-point state that is not the default; the thread is gone when the calls are made. */

#include "values_hostile.h"

static const char* path;
static int loaded;
static ValueAnswer expected[kValueFunctions];

/* Loading through CallInState. */
static double OpenIt(double ignored) {
  (void)ignored;
  loaded = OpenValues(&values, path);
  return 0.0;
}

static void Load(void* unused) {
  (void)unused;
  StateCall call = QuietState();
  call.entry = (AnyExport)OpenIt;
  call.word_count = 2;
  call.control_word = 0x1332;
  call.mxcsr = 0x1E80; /* divide by zero unmasked: none of the loader's own code divides */
  CallInState(&call);
  Check((call.control_word_after | 0x40) == (0x1332 | 0x40), "control word %04x after the load",
        (unsigned)call.control_word_after);
  Check((call.mxcsr_after & 0xFFC0) == 0x1E80, "MXCSR %04x after the load",
        (unsigned)call.mxcsr_after);
}

static void CallAll(void* answers) {
  for (int function = 0; function < kValueFunctions; ++function) {
    const ValueArguments arguments = OrdinaryValueArguments(function, 3);
    CallValue(function, &arguments, (ValueAnswer*)answers + function);
  }
}

int main(int argc, char** argv) {
  if (argc < 2) {
    return 2;
  }
  path = argv[1];
  ThreadTask loading = {Load, NULL, 0};
  StartThread(&loading);
  JoinThread(&loading);
  if (!loaded) {
    printf("FAILED: cannot load %s\n", path);
    return 1;
  }
  ThreadTask calling = {CallAll, expected, 0};
  StartThread(&calling);
  JoinThread(&calling);
  static ValueAnswer answers[kValueFunctions];
  CallAll(answers);
  for (int function = 0; function < kValueFunctions; ++function) {
    Check(SameValueAnswer(&answers[function], &expected[function]),
          "function %d: other bits on the main thread", function);
  }
  /* What was arranged under that state is what a load under the default one arranges. */
  ZenithorValuesClose(&values);
  if (!OpenValues(&values, path)) {
    printf("FAILED: cannot load %s again\n", path);
    return 1;
  }
  CallAll(answers);
  for (int function = 0; function < kValueFunctions; ++function) {
    answers[function].text = expected[function].text; /* may be elsewhere now */
    Check(SameValueAnswer(&answers[function], &expected[function]),
          "function %d: other bits after an ordinary load", function);
  }
  return Verdict("values_load_elsewhere");
}
