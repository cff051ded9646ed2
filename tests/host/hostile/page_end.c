/* A host whose record ends with the last byte before an unmapped page, begins with the first byte
 * after one, or stands at an odd address: nothing outside the record is touched. */

#include "hostile.h"

enum { kCallsPerExport = 200 };

static void CheckAt(const FoundExport* export_, unsigned char* record, unsigned char* page,
                    size_t page_size, const char* place) {
  static Answer expected;
  const size_t size = RecordSizeOf(export_->row);
  for (int k = 0; k < kCallsPerExport; ++k) {
    const ExportArguments arguments = OrdinaryArguments(export_->row, (uint64_t)k);
    CallGuarded(export_, &arguments, &expected);
    memset(page, kPattern, page_size);
    const double result = CallExport(export_->row, export_->entry, &arguments, record);
    Check(SameBits(result, expected.result) && memcmp(record, expected.guarded.record, size) == 0,
          "%s, record %s: other bits", export_->row->name, place);
    size_t strays = 0;
    for (unsigned char* byte = page; byte < page + page_size; ++byte) {
      strays += (byte < record || byte >= record + size) && *byte != kPattern;
    }
    Check(strays == 0, "%s, record %s: %u bytes outside it", export_->row->name, place,
          (unsigned)strays);
    Check(BytesWrittenOutside(&expected.guarded, size) == 0, "%s: bytes outside the record",
          export_->row->name);
  }
}

int main(int argc, char** argv) {
  FoundExport exports[kExportCount];
  int count = 0;
  OpenFromArguments(argc, argv, exports, &count);
  size_t page_size = 0;
  unsigned char* const end = PageBeforeNothing(&page_size);
  unsigned char* const page = end - page_size;
  for (int e = 0; e < count; ++e) {
    const size_t size = RecordSizeOf(exports[e].row);
    if (size > 0) {
      CheckAt(&exports[e], end - size, page, page_size, "at the end of a page");
      CheckAt(&exports[e], page, page, page_size, "at the start of a page");
      CheckAt(&exports[e], page + 1, page, page_size, "at an odd address");
      CheckAt(&exports[e], end - size - 3, page, page_size, "at an odd address near the end");
    }
  }
  return Verdict("page_end");
}
