// The "S2" reply (fields split at line feeds) read into EstadoDocumento.
// Properties: only run-time errors escape; a first field without a blank (the failure
// reply) loads nothing; the record can always be shown.
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
    records::EstadoDocumento record;
    const std::string untouched = record.toString();
    try {
        record.loadFromResponse(fields);
    } catch (const automation::VbError&) {
    }
    const std::string shown = record.toString();
    if (!fields.empty() && fields[0].find(' ') == std::string::npos) {
        FUZZ_CHECK(shown == untouched);
    }
    return 0;
}
