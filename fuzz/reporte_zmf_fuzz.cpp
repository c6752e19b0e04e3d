// One fiscal-memory closure row (fields split at line feeds) read into ReporteZMF.
// Properties: only run-time errors escape; what was read can always be shown.
#include <cstdint>
#include <string>

#include "automation/vb_error.h"
#include "fuzz_support.h"
#include "records/reporte_zmf.h"
#include "session/responses.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvid;
    fuzz::ProcessSetup setup;
    const session::Fields fields = fuzz::ReplyFields(data, size);
    records::ReporteZMF record;
    try {
        record.loadFromResponse(fields);
    } catch (const automation::VbError&) {
    }
    (void)record.toString();
    return 0;
}
