// Every member the IDL declares is reachable by name on an object of every published
// class, under the DISPID its place in the declaration gives it.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "registration/com_server.h"
#include "registration/idl_declarations.h"

namespace corvid::registration {
namespace {

std::string ReadFile(const char* path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

TEST(DispidTest, EveryMemberOfEveryClassHasTheDispidOfItsPlaceInTheIdl) {
    const IdlDeclarations idl = ParseIdl(ReadFile(CORVID_API_IDL));
    ASSERT_GE(idl.classes.size(), 2u) << "no coclasses read from " << CORVID_API_IDL;
    ComServer server;
    for (const IdlClass& published : idl.classes) {
        SCOPED_TRACE(published.name);
        const auto& members = idl.interfaces.at(published.default_interface);
        ASSERT_FALSE(members.empty());
        IDispatch* object = server.Create(published.clsid);
        ASSERT_NE(object, nullptr) << "the server does not make " << published.name;
        DISPID next = 1;
        for (const IdlMember& member : members) {
            const DISPID expected = member.default_member ? DISPID_VALUE : next++;
            EXPECT_EQ(DispidOf(object, member.name), expected) << member.name;
        }
        object->Release();
    }
}

}  // namespace
}  // namespace corvid::registration
