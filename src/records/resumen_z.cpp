#include "records/resumen_z.h"

#include <array>
#include <span>

#include "automation/conversions.h"
#include "automation/format.h"
#include "automation/vb_error.h"
#include "records/fecha_hora.h"
#include "records/reply_fields.h"

namespace corvid::records {
namespace {

using Group = std::array<automation::Currency*, 7>;

Group Sales(ResumenZ& z) {
    return {&z.ventasExentas, &z.baseVG, &z.impuestoVG, &z.baseIR,
            &z.impuestoIR,    &z.baseIA, &z.impuestoIA};
}
Group DebitNotes(ResumenZ& z) {
    return {&z.exentoND,     &z.baseVGND, &z.impuestoVGND, &z.baseIRND,
            &z.impuestoIRND, &z.baseIAND, &z.impuestoIAND};
}
Group CreditNotes(ResumenZ& z) {
    return {&z.exentoNC,     &z.baseVGNC, &z.impuestoVGNC, &z.baseIRNC,
            &z.impuestoIRNC, &z.baseIANC, &z.impuestoIANC};
}

// Reads the reply's fields in order; the first missing or bad field raises.
class FieldReader {
  public:
    explicit FieldReader(const std::vector<std::string>& fields) : fields_(fields) {}

    std::int16_t Int16() { return automation::CInt(Next()); }
    std::int32_t Int32() { return automation::CLng(Next()); }
    automation::Currency Amount() { return detail::Hundredths(Next()); }
    void Amounts(std::span<automation::Currency* const> amounts) {
        for (automation::Currency* amount : amounts) *amount = Amount();
    }
    automation::Date DateOnly() { return ParseFechaHora(Next(), ""); }
    automation::Date DateAndTime() {
        const std::string& date = Next();
        return ParseFechaHora(date, Next());
    }

  private:
    const std::string& Next() { return FieldAt(fields_, next_++); }

    const std::vector<std::string>& fields_;
    std::size_t next_ = 0;
};

void ReadBasic(ResumenZ& z, FieldReader& in) {
    z.numeroUltimoZ = in.Int16();
    z.fechaUltimoReporte = in.DateOnly();
    z.numeroUltimaFactura = in.Int32();
    z.fechaUltimaFactura = in.DateAndTime();
    in.Amounts(Sales(z));
    in.Amounts(CreditNotes(z));
    z.ultimaNC = in.Int32();
}

void Read29(ResumenZ& z, FieldReader& in) {
    z.numeroUltimoZ = in.Int16();
    z.fechaUltimoReporte = in.DateAndTime();
    z.numeroUltimaFactura = in.Int32();
    z.fechaUltimaFactura = in.DateAndTime();
    in.Amounts(Sales(z));
    in.Amounts(DebitNotes(z));
    z.ultimaND = in.Int32();
    in.Amounts(CreditNotes(z));
    z.ultimaNC = in.Int32();
}

// The first 30 fields, which the long layout shares.
void Read30(ResumenZ& z, FieldReader& in) {
    z.numeroUltimoZ = in.Int16();
    z.fechaUltimoReporte = in.DateAndTime();
    z.numeroUltimaFactura = in.Int32();
    z.fechaUltimaFactura = in.DateAndTime();
    // The printer's order: debit note, credit note, non-fiscal document.
    z.ultimaND = in.Int32();
    z.ultimaNC = in.Int32();
    z.ultimoDNF = in.Int32();
    in.Amounts(Sales(z));
    in.Amounts(DebitNotes(z));
    in.Amounts(CreditNotes(z));
}

void ReadLong(ResumenZ& z, FieldReader& in) {
    Read30(z, in);
    const std::array levies{&z.percibidoVentas, &z.percibidoND, &z.percibidoNC};
    in.Amounts(levies);
    const std::array igtf{&z.BaseIGTF, &z.ValorIGTF,  &z.BaseIGTFND,
                          &z.IGTFND,   &z.BaseIGTFNC, &z.IGTFNC};
    in.Amounts(igtf);
}

}  // namespace

void ResumenZ::load(ResponseSource& printer) {
    const Fields fields = printer.GetResponse("U0Z");
    // Asked as the printer has always been asked; the reply alone picks the layout.
    (void)printer.tipoPrinter();
    loadFromFields(fields);
}

void ResumenZ::loadFromFields(const std::vector<std::string>& fields) {
    const long upper = static_cast<long>(fields.size()) - 1;
    FieldReader in(fields);
    try {
        if (upper == 28) {
            Read29(*this, in);
        } else if (upper == 29 || upper == 30) {
            Read30(*this, in);
        } else if (upper >= 37 && upper <= 40) {
            ReadLong(*this, in);
        } else {
            ReadBasic(*this, in);
        }
    } catch (const automation::VbError&) {
        // What was read before the failing field stays.
    }
}

std::string ResumenZ::toString(const std::string& serial) const {
    using automation::Format;
    using automation::Variant;
    std::string text;
    const auto line = [&](const char* label, const std::string& value) {
        text += label + value + "\r\n";
    };
    const auto money = [](automation::Currency value) {
        return Format(Variant(value), "Currency");
    };
    line("Serial = ", serial);
    line("NumeroCierre = ", Format(Variant(numeroUltimoZ), "00000"));
    line("ultimaFactura = ", Format(Variant(numeroUltimaFactura), "000000"));
    line("fechaUltimaFactura = ", Format(Variant(fechaUltimaFactura), "dd-mm-yyyy hh:nn"));
    line("VentaExenta = ", money(ventasExentas));
    line("VentaBase1 = ", money(baseVG));
    line("IVABAse1 = ", money(impuestoVG));  // this capitalisation is what hosts parse
    line("VentaBase2 = ", money(baseIR));
    line("IVABase2 = ", money(impuestoIR));
    line("VentaBase3 = ", money(baseIA));
    line("IVABase3 = ", money(impuestoIA));
    line("DevolucionExenta = ", money(exentoNC));
    line("DevolucionBase1 = ", money(baseVGNC));
    line("IVADevBase1 = ", money(impuestoVGNC));
    line("DevolucionBase2 = ", money(baseIRNC));
    line("IVADevBase2 = ", money(impuestoIRNC));
    line("DevolucionBase3 = ", money(baseIANC));
    line("IVADevBase3 = ", money(impuestoIANC));
    line("UltimaNC = ", automation::CStr(Variant(ultimaNC)));
    line("UltimoDNF = ", automation::CStr(Variant(ultimoDNF)));
    line("BaseIGTF = ", money(BaseIGTF));
    line("ValorIGTF = ", money(ValorIGTF));
    return text;
}

}  // namespace corvid::records
