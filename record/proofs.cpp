// What the compiler proves of the tables: each field lies inside its record, every value of its range comes back from
// the bytes that it is stored as, no two fields stand on the same bits unless both say so, and lists are as long as
// their ranges.
#include "record/arrangement_fields.h"
#include "record/global_fields.h"
#include "record/program_fields.h"

namespace zentaline::field_check {

static_assert(BlocksFit(kArrangementFields) && KeysDiffer(kArrangementFields));
static_assert(Apart<kArrRecordLength>(kArrangementFields));

static_assert(BlocksFit(kProgramFields) && KeysDiffer(kProgramFields));
static_assert(Apart<kPrgRecordLength>(kProgramFields));

static_assert(BlocksFit(kGlobalFields) && KeysDiffer(kGlobalFields));
static_assert(Apart<kGlobalBlockLength>(kGlobalFields));

}  // namespace zentaline::field_check
