// The "U0Z" daily summary (fields split at line feeds) read into ResumenZ.
// Properties: nothing raises, whatever the field count picks as layout; the record can
// always be shown.
#include <cstdint>
#include <string>

#include "fuzz_support.h"
#include "records/resumen_z.h"
#include "session/responses.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvid;
    fuzz::ProcessSetup setup;
    const session::Fields fields = fuzz::ReplyFields(data, size);
    records::ResumenZ record;
    record.loadFromFields(fields);
    (void)record.toString("Z1F0000001");
    return 0;
}
