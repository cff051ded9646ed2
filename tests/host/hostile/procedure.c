/* A host that declares the functions as procedures: the result stays behind, on 32-bit in an x87
 * register. Eight such calls fill the register stack of a library that does not empty it, and the
 * arithmetic of both sides turns into NaN. */

#include <math.h>

#include "hostile.h"

typedef void (*PositionProcedure)(double, double, double, double, double, double, int32_t, void*);
typedef void (*SelectedEventProcedure)(double, double, double, int32_t, void*);
typedef void (*FramedEventProcedure)(double, double, double, void*);
typedef void (*PlainEventProcedure)(double, void*);
typedef void (*RisingProcedure)(double, double, double, double, double, int32_t, int32_t);

enum { kCalls = 1000 };

static void CallAsProcedure(const FoundExport* export_, const ExportArguments* a, void* record) {
  const double* const d = a->doubles;
  const int32_t* const i = a->integers;
  switch (export_->row->shape) {
    case kShapePosition:
      ((PositionProcedure)export_->entry)(d[0], d[1], d[2], d[3], d[4], d[5], i[0], record);
      break;
    case kShapeSelectedEvent:
      ((SelectedEventProcedure)export_->entry)(d[0], d[1], d[2], i[0], record);
      break;
    case kShapeFramedEvent:
      ((FramedEventProcedure)export_->entry)(d[0], d[1], d[2], record);
      break;
    case kShapePlainEvent:
      ((PlainEventProcedure)export_->entry)(d[0], record);
      break;
    default:
      ((RisingProcedure)export_->entry)(d[0], d[1], d[2], d[3], d[4], i[0], i[1]);
  }
}

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  OpenFromArguments(argc, argv, exports, &count);
  static Answer expected[kCalls];
  static GuardedRecord guarded;
  for (int e = 0; e < count; ++e) {
    for (int k = 0; k < kCalls; ++k) {
      const ExportArguments arguments = OrdinaryArguments(exports[e].row, (uint64_t)k);
      CallGuarded(&exports[e], &arguments, &expected[k]);
    }
    for (int k = 0; k < kCalls; ++k) {
      const ExportArguments arguments = OrdinaryArguments(exports[e].row, (uint64_t)k);
      ClearGuarded(&guarded);
      CallAsProcedure(&exports[e], &arguments, guarded.record);
      /* Only one result can be left over: the host's own x87 arithmetic still has room. */
      volatile long double third = 1.0L;
      third /= 3.0L;
      Check(fabsl(third * 3.0L - 1.0L) < 1e-18L, "%s, call %d: the host's arithmetic is broken",
            exports[e].row->name, k);
    }
    for (int k = 0; k < kCalls; ++k) {
      const ExportArguments arguments = OrdinaryArguments(exports[e].row, (uint64_t)k);
      ClearGuarded(&guarded);
      CallAsProcedure(&exports[e], &arguments, guarded.record);
      Check(memcmp(&guarded, &expected[k].guarded, sizeof guarded) == 0,
            "%s, call %d: other bits in the record", exports[e].row->name, k);
    }
  }
  printf("%d exports, %d calls each as a procedure\n", count, 2 * kCalls);
  return Verdict("procedure");
}
