// What CorvidAPI.idl declares, read from its text: the coclasses with their CLSID and
// default interface, and each dispatch interface's members in declaration order.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace corvid::registration {

struct IdlMember {
    std::string name;
    // Declared with id(DISPID_VALUE): the default member.
    bool default_member = false;
};

struct IdlClass {
    std::string name;
    std::string clsid;  // as written in the IDL, without braces
    std::string default_interface;
};

struct IdlDeclarations {
    std::vector<IdlClass> classes;
    // Each member once (a property's get and put together), in order of first declaration.
    std::map<std::string, std::vector<IdlMember>> interfaces;
};

IdlDeclarations ParseIdl(std::string text);

}  // namespace corvid::registration
