// The automation interface as hosts read it from the type library inside the built DLL:
// every type with its GUID, every member with its DISPID, kind, vtable slot and arguments,
// compared with the published list (published_members.txt). A member inserted, moved,
// renamed or retyped shows as a differing line; the list read from the DLL is then
// written to published_members.actual.txt in the current folder.
#include <windows.h>
// (first: the OLE headers below use its types)
#include <gtest/gtest.h>
#include <oleauto.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace corvid::registration {
namespace {

std::string Narrow(const wchar_t* text) {
    std::string narrow;
    for (; text != nullptr && *text != 0; ++text) narrow.push_back(static_cast<char>(*text));
    return narrow;
}

std::string Guid(const GUID& guid) {
    wchar_t text[40] = {};
    StringFromGUID2(guid, text, 40);
    return Narrow(text);
}

std::string NameOf(ITypeInfo* info, MEMBERID member) {
    BSTR name = nullptr;
    info->GetDocumentation(member, &name, nullptr, nullptr, nullptr);
    std::string narrow = Narrow(name);
    SysFreeString(name);
    return narrow;
}

std::string TypeOf(ITypeInfo* info, const TYPEDESC& type) {
    static const char* const kNames[] = {
        "void", "null", "short",     "long",  "float",        "double",  "CY",
        "DATE", "BSTR", "IDispatch", "SCODE", "VARIANT_BOOL", "VARIANT", "IUnknown"};
    if (type.vt < std::size(kNames)) return kNames[type.vt];
    if (type.vt == VT_VOID) return "void";
    if (type.vt == VT_PTR) return TypeOf(info, *type.lptdesc) + "*";
    if (type.vt == VT_SAFEARRAY) return "SAFEARRAY(" + TypeOf(info, *type.lptdesc) + ")";
    ITypeInfo* referenced = nullptr;
    if (type.vt != VT_USERDEFINED || FAILED(info->GetRefTypeInfo(type.hreftype, &referenced))) {
        return "vt" + std::to_string(type.vt);
    }
    std::string name = NameOf(referenced, MEMBERID_NIL);
    referenced->Release();
    return name;
}

// in, out, lcid, retval, optional, default: the PARAMFLAG bits in order.
std::string Flags(USHORT flags) {
    static const char* const kNames[] = {"in ",     "out ",      "lcid ",
                                         "retval ", "optional ", "default "};
    std::string text;
    for (std::size_t bit = 0; bit < std::size(kNames); ++bit) {
        if ((flags & (1u << bit)) != 0) text += kNames[bit];
    }
    return text;
}

const char* InvokeKind(INVOKEKIND kind) {
    return kind == INVOKE_FUNC          ? "method"
           : kind == INVOKE_PROPERTYGET ? "get"
           : kind == INVOKE_PROPERTYPUT ? "put"
                                        : "putref";
}

void WriteFunction(ITypeInfo* info, const FUNCDESC& function, std::ostream& out) {
    BSTR names[32] = {};
    UINT count = 0;
    info->GetNames(function.memid, names, 32, &count);
    out << "  " << function.memid << ' ' << InvokeKind(function.invkind) << ' ' << Narrow(names[0])
        << '(';
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        out << (i > 0 ? ", " : "") << Flags(parameter.paramdesc.wParamFlags)
            << TypeOf(info, parameter.tdesc) << ' '
            << (i + 1 < static_cast<SHORT>(count) ? Narrow(names[i + 1]) : "value");
    }
    out << ") " << TypeOf(info, function.elemdescFunc.tdesc) << " slot "
        << function.oVft / static_cast<SHORT>(sizeof(void*)) << '\n';
    for (UINT i = 0; i < count; ++i) SysFreeString(names[i]);
}

void WriteVariable(ITypeInfo* info, const VARDESC& variable, std::ostream& out) {
    out << "  " << variable.memid << ' ' << NameOf(info, variable.memid);
    if (variable.varkind == VAR_CONST) {
        VARIANT value;
        VariantInit(&value);
        VariantChangeType(&value, variable.lpvarValue, 0, VT_I4);
        out << " = " << value.lVal;
    } else {
        out << ' ' << TypeOf(info, variable.elemdescVar.tdesc);
    }
    out << '\n';
}

// One line for each type, then one for each of its members, in the library's order.
std::string Walk(ITypeLib* library) {
    static const char* const kKinds[] = {"enum",     "record",  "module", "interface",
                                         "dispatch", "coclass", "alias",  "union"};
    std::ostringstream out;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        ITypeInfo* info = nullptr;
        TYPEATTR* type = nullptr;
        if (FAILED(library->GetTypeInfo(index, &info)) || FAILED(info->GetTypeAttr(&type))) {
            out << "type " << index << " cannot be read\n";
            continue;
        }
        out << kKinds[type->typekind] << ' ' << NameOf(info, MEMBERID_NIL) << ' '
            << Guid(type->guid) << ((type->wTypeFlags & TYPEFLAG_FDUAL) != 0 ? " dual" : "")
            << '\n';
        for (WORD i = 0; i < type->cImplTypes; ++i) {
            HREFTYPE reference = 0;
            ITypeInfo* implemented = nullptr;
            INT flags = 0;
            info->GetImplTypeFlags(i, &flags);
            if (SUCCEEDED(info->GetRefTypeOfImplType(i, &reference)) &&
                SUCCEEDED(info->GetRefTypeInfo(reference, &implemented))) {
                out << "  implements " << NameOf(implemented, MEMBERID_NIL) << " flags " << flags
                    << '\n';
                implemented->Release();
            }
        }
        for (WORD i = 0; i < type->cFuncs; ++i) {
            FUNCDESC* function = nullptr;
            if (FAILED(info->GetFuncDesc(i, &function))) continue;
            // IUnknown's and IDispatch's own members are left out: every interface has them.
            if (function->memid < 0x60000000) WriteFunction(info, *function, out);
            info->ReleaseFuncDesc(function);
        }
        for (WORD i = 0; i < type->cVars; ++i) {
            VARDESC* variable = nullptr;
            if (FAILED(info->GetVarDesc(i, &variable))) continue;
            WriteVariable(info, *variable, out);
            info->ReleaseVarDesc(variable);
        }
        info->ReleaseTypeAttr(type);
        info->Release();
    }
    return out.str();
}

TEST(TypeLibraryTest, ThePublishedInterfaceIsUnchanged) {
    const std::string dll = CORVID_API_DLL;
    ITypeLib* library = nullptr;
    ASSERT_EQ(LoadTypeLibEx(std::wstring(dll.begin(), dll.end()).c_str(), REGKIND_NONE, &library),
              S_OK);
    const std::string actual = Walk(library);
    library->Release();

    std::ifstream file(CORVID_PUBLISHED_MEMBERS, std::ios::binary);
    std::istringstream built(actual);
    std::string expected_line, built_line;
    int line = 1;
    for (;; ++line) {
        const bool more_expected = static_cast<bool>(std::getline(file, expected_line));
        const bool more_built = static_cast<bool>(std::getline(built, built_line));
        if (!more_expected && !more_built) return;
        if (!more_expected) expected_line = "<end>";
        if (!more_built) built_line = "<end>";
        if (expected_line != built_line) break;
    }
    std::ofstream("published_members.actual.txt", std::ios::binary) << actual;
    ADD_FAILURE() << "line " << line << " of " << CORVID_PUBLISHED_MEMBERS
                  << "\n  published: " << expected_line << "\n  built:     " << built_line
                  << "\n(the whole list built: published_members.actual.txt)";
}

}  // namespace
}  // namespace corvid::registration
