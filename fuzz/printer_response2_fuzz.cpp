// The "S2" reply (fields split at line feeds) read into PrinterResponse2.
// Properties: only run-time errors escape; what was read before a bad field can still be
// shown.
#include <cstdint>
#include <string>

#include "automation/vb_error.h"
#include "fuzz_support.h"
#include "records/printer_response2.h"
#include "session/responses.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvid;
    fuzz::ProcessSetup setup;
    const session::Fields fields = fuzz::ReplyFields(data, size);
    records::PrinterResponse2 record;
    try {
        record.loadFromResponse(fields);
    } catch (const automation::VbError&) {
    }
    (void)record.toString();
    return 0;
}
