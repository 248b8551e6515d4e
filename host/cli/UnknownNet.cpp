#include <cli/UnknownNet.h>

#include <session/query/NearNames.h>

namespace fighost {

namespace {

std::string Complaint(std::vector<std::string> const& names, std::string const& wanted,
                      std::string const& otherwise) {
    std::string message = "no net is called '" + wanted + "'";
    std::vector<std::string> const near = NearNames(names, wanted);
    if (near.empty()) return message + otherwise;
    for (std::string const& name : near)
        message += (&name == &near.front() ? "; did you mean '" : " or '") + name + "'";
    return message + "?";
}

}  // namespace

std::string UnknownNet(std::vector<std::string> const& names, std::string const& wanted) {
    return Complaint(names, wanted, {});
}

std::string UnknownNetOfDesign(std::vector<std::string> const& names, std::string const& wanted) {
    return Complaint(names, wanted, "; 'figrep list nets' names them all");
}

}  // namespace fighost
