/* A host that passes no record: 0.0 comes back. */

#include "hostile.h"

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  OpenFromArguments(argc, argv, exports, &count);
  for (int e = 0; e < count; ++e) {
    if (RecordSizeOf(exports[e].row) == 0) {
      continue;
    }
    for (int k = 0; k < 200; ++k) {
      const ExportArguments arguments = OrdinaryArguments(exports[e].row, (uint64_t)k);
      const double result = CallExport(exports[e].row, exports[e].entry, &arguments, NULL);
      Check(SameBits(result, 0.0), "%s: %g", exports[e].row->name, result);
    }
  }
  return Verdict("null_record");
}
