// The "S4" reply (fields split at line feeds) read into PrinterResponse4.
// Properties: only run-time errors escape; after a full read nMedios is the number of
// fields up to 24, after a failed one 0; valor never raises and is 0 outside 1..nMedios.
#include <algorithm>
#include <cstdint>
#include <string>

#include "automation/vb_error.h"
#include "fuzz_support.h"
#include "records/printer_response4.h"
#include "session/responses.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvid;
    fuzz::ProcessSetup setup;
    const session::Fields fields = fuzz::ReplyFields(data, size);
    records::PrinterResponse4 record;
    bool failed = false;
    try {
        record.loadFromResponse(fields);
    } catch (const automation::VbError&) {
        failed = true;
    }
    const auto expected = failed ? 0 : std::min(fields.size(), records::PrinterResponse4::kMeans);
    FUZZ_CHECK(static_cast<std::size_t>(record.nMedios()) == expected);
    for (std::int32_t n = -1; n <= 26; ++n) {
        const automation::Currency value = record.valor(n);
        if (n < 1 || n > record.nMedios()) FUZZ_CHECK(value == automation::Currency());
    }
    return 0;
}
