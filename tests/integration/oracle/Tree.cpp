#include "Tree.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace oracle {

namespace {

std::string const NOTHING;

std::string ReadQuoted(std::string const& text, std::size_t& at) {
    std::string result;
    for (++at; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] != '\\') {
            result += text[at];
            continue;
        }
        char const escaped = text[++at];
        result += escaped == 'n' ? '\n' : escaped == 't' ? '\t' : escaped == 'r' ? '\r' : escaped;
    }
    ++at;
    return result;
}

Node ReadNode(std::string const& text, std::size_t& at) {
    Node node;
    if (text[at] == '"') {
        node.text = ReadQuoted(text, at);
        return node;
    }
    if (text[at] != '(') {
        std::size_t const from = at;
        while (at < text.size() && !std::isspace(static_cast<unsigned char>(text[at])) &&
               text[at] != '(' && text[at] != ')')
            ++at;
        node.text = text.substr(from, at - from);
        return node;
    }
    node.list = true;
    for (++at; at < text.size();) {
        if (std::isspace(static_cast<unsigned char>(text[at]))) {
            ++at;
        } else if (text[at] == ')') {
            ++at;
            break;
        } else {
            node.items.push_back(ReadNode(text, at));
        }
    }
    if (!node.items.empty() && !node.items.front().list) node.text = node.items.front().text;
    return node;
}

}  // namespace

Node const* Node::Find(std::string const& name) const {
    for (Node const& item : items)
        if (item.list && item.text == name) return &item;
    return nullptr;
}

std::vector<Node const*> Node::All(std::string const& name) const {
    std::vector<Node const*> found;
    for (Node const& item : items)
        if (item.list && item.text == name) found.push_back(&item);
    return found;
}

std::string const& Node::At(std::size_t index) const {
    return index < items.size() && !items[index].list ? items[index].text : NOTHING;
}

bool Node::Flag(std::string const& name) const {
    for (std::size_t i = 1; i < items.size(); ++i) {
        if (items[i].text != name) continue;
        if (!items[i].list) return true;
        return items[i].items.size() < 2 || items[i].At(1) == "yes";
    }
    return false;
}

long Node::Coordinate(std::size_t index) const {
    return std::lround(std::strtod(At(index).c_str(), nullptr) * 10000.0);
}

Node ReadTree(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream content;
    content << file.rdbuf();
    std::string const text = content.str();
    std::size_t const at = text.find('(');
    if (at == std::string::npos) throw std::runtime_error("no list in " + path);
    std::size_t position = at;
    return ReadNode(text, position);
}

}  // namespace oracle
