// The automation interface as hosts read it from the type library inside the built DLL:
// every type with its GUID, every member with its DISPID, kind, vtable slot and arguments,
// compared with the published list (published_members.txt). A member inserted, moved,
// renamed or retyped shows as a differing line; the list read from the DLL is then
// written to published_members.actual.txt in the current folder.
#include <windows.h>
// (first: the OLE headers below use its types)
#include <gtest/gtest.h>
#include <oleauto.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace corvid::registration {
namespace {

// The text of a string the library handed over, which it frees.
std::string Take(BSTR text) {
    std::string narrow;
    for (const wchar_t* c = text; c != nullptr && *c != 0; ++c) narrow.push_back(char(*c));
    SysFreeString(text);
    return narrow;
}

std::string NameOf(ITypeInfo* info, MEMBERID member) {
    BSTR name = nullptr;
    info->GetDocumentation(member, &name, nullptr, nullptr, nullptr);
    return Take(name);
}

std::string TypeOf(ITypeInfo* info, const TYPEDESC& type) {
    static const char* const kNames[] = {
        "void", "null", "short",     "long",  "float",        "double",  "CY",
        "DATE", "BSTR", "IDispatch", "SCODE", "VARIANT_BOOL", "VARIANT", "IUnknown"};
    if (type.vt < std::size(kNames)) return kNames[type.vt];
    if (type.vt == VT_VOID) return "void";
    if (type.vt == VT_PTR) return TypeOf(info, *type.lptdesc) + "*";
    ITypeInfo* referenced = nullptr;
    if (type.vt != VT_USERDEFINED || FAILED(info->GetRefTypeInfo(type.hreftype, &referenced))) {
        return "vt" + std::to_string(type.vt);
    }
    std::string name = NameOf(referenced, MEMBERID_NIL);
    referenced->Release();
    return name;
}

void WriteFunction(ITypeInfo* info, const FUNCDESC& function, std::ostream& out) {
    static const char* const kKinds[] = {"", "method", "get", "", "put", "", "", "", "putref"};
    static const char* const kFlags[] = {"in ",     "out ",      "lcid ",
                                         "retval ", "optional ", "default "};
    BSTR names[32] = {};
    UINT count = 0;
    info->GetNames(function.memid, names, 32, &count);
    out << "  " << function.memid << ' ' << kKinds[function.invkind] << ' ' << Take(names[0])
        << '(';
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        out << (i > 0 ? ", " : "");
        for (std::size_t bit = 0; bit < std::size(kFlags); ++bit) {
            if ((parameter.paramdesc.wParamFlags & (1u << bit)) != 0) out << kFlags[bit];
        }
        out << TypeOf(info, parameter.tdesc) << ' '
            << (i + 1 < static_cast<SHORT>(count) ? Take(names[i + 1]) : "value");
    }
    out << ") " << TypeOf(info, function.elemdescFunc.tdesc) << " slot "
        << function.oVft / static_cast<SHORT>(sizeof(void*)) << '\n';
}

// One line for each type, then one for each of its members, in the library's order.
std::string Walk(ITypeLib* library) {
    static const char* const kKinds[] = {"enum",     "record",  "module", "interface",
                                         "dispatch", "coclass", "alias",  "union"};
    std::ostringstream out;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        ITypeInfo* info = nullptr;
        TYPEATTR* type = nullptr;
        if (FAILED(library->GetTypeInfo(index, &info))) continue;  // shows as missing lines
        info->GetTypeAttr(&type);
        wchar_t guid[40] = {};
        StringFromGUID2(type->guid, guid, 40);
        out << kKinds[type->typekind] << ' ' << NameOf(info, MEMBERID_NIL) << ' '
            << Take(SysAllocString(guid))
            << ((type->wTypeFlags & TYPEFLAG_FDUAL) != 0 ? " dual" : "") << '\n';
        for (WORD i = 0; i < type->cImplTypes; ++i) {
            TYPEDESC implemented{};
            implemented.vt = VT_USERDEFINED;
            INT flags = 0;
            info->GetRefTypeOfImplType(i, &implemented.hreftype);
            info->GetImplTypeFlags(i, &flags);
            out << "  implements " << TypeOf(info, implemented) << " flags " << flags << '\n';
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
            // Enumerations hold constants of type long.
            out << "  " << variable->memid << ' ' << NameOf(info, variable->memid) << " = "
                << variable->lpvarValue->lVal << '\n';
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
    const std::string built = Walk(library);
    library->Release();
    std::ifstream file(CORVID_PUBLISHED_MEMBERS, std::ios::binary);
    const std::string published{std::istreambuf_iterator<char>(file), {}};
    if (built == published) return;
    std::ofstream("published_members.actual.txt", std::ios::binary) << built;
    const auto differs =
        std::mismatch(built.begin(), built.end(), published.begin(), published.end()).first;
    ADD_FAILURE() << "the list built differs from " << CORVID_PUBLISHED_MEMBERS << " from line "
                  << std::count(built.begin(), differs, '\n') + 1
                  << " (the whole list built: published_members.actual.txt)";
}

}  // namespace
}  // namespace corvid::registration
