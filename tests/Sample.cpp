#include "Sample.hpp"

#include <PerchAppLibrary/record/RecordSchema.hpp>

PERCH_RECORD_SCHEMA(Sample);
