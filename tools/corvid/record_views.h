// The status records as named fields, in the order the printer reports them: one JSON
// object per record, which the tool prints as text lines or as JSON.
#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string>

#include "records/printer_response1.h"
#include "records/printer_response2.h"
#include "records/printer_response3.h"
#include "records/printer_response4.h"
#include "records/reporte_zmf.h"
#include "records/resumen_z.h"

namespace corvid::tool {

using RecordView = nlohmann::ordered_json;

// Amounts are numbers with two decimals' worth of precision, dates ISO 8601 text.
RecordView ViewOf(const records::PrinterResponse1& record);
RecordView ViewOf(const records::PrinterResponse2& record);
RecordView ViewOf(const records::PrinterResponse3& record);
RecordView ViewOf(const records::PrinterResponse4& record);
RecordView ViewOf(const records::ResumenZ& record);
RecordView ViewOf(const records::ReporteZMF& record);

// "name: value" lines after `indent`; nested objects indented further, arrays on one line
// as JSON.
void PrintView(const RecordView& view, std::ostream& out, const std::string& indent = "  ");

}  // namespace corvid::tool
