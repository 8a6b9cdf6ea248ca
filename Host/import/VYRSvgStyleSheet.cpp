#include "VYRSvgStyleSheet.h"

#include <algorithm>
#include <cctype>
#include <functional>

#include "VYRSvgValues.h"

namespace {

bool IsNameChar(char i_char) {
  return std::isalnum(static_cast<unsigned char>(i_char)) || i_char == '-' || i_char == '_' ||
         static_cast<unsigned char>(i_char) >= 0x80;
}

bool StartsCompound(char i_char) {
  return IsNameChar(i_char) || i_char == '*' || i_char == '#' || i_char == '.' || i_char == '[';
}

// Reads a name at io_position; empty when there is none.
std::string ReadName(const std::string& i_text, size_t& io_position) {
  const size_t start = io_position;
  while (io_position < i_text.size() && IsNameChar(i_text[io_position])) ++io_position;
  return i_text.substr(start, io_position - start);
}

std::string WithoutComments(const std::string& i_text) {
  std::string text;
  size_t position = 0;
  while (position < i_text.size()) {
    const size_t open = i_text.find("/*", position);
    if (open == std::string::npos) break;
    text += i_text.substr(position, open - position);
    const size_t close = i_text.find("*/", open + 2);
    position = close == std::string::npos ? i_text.size() : close + 2;
  }
  if (position < i_text.size()) text += i_text.substr(position);
  return text;
}

// The end of a block opened at i_open (the position after its "}"), or the text's end.
size_t BlockEnd(const std::string& i_text, size_t i_open) {
  int depth = 0;
  for (size_t i = i_open; i < i_text.size(); ++i) {
    if (i_text[i] == '{') ++depth;
    if (i_text[i] == '}' && --depth == 0) return i + 1;
  }
  return i_text.size();
}

}  // namespace

std::string VYRSvgLocalName(const VYRIDOMNode_var& i_node) {
  VYRUnicodeString name;
  i_node.GetNodeName(name);
  const std::string text = name.GetStdString();
  const size_t colon = text.find(':');
  return colon == std::string::npos ? text : text.substr(colon + 1);
}

std::vector<VYRSvgDeclaration> VYRSvgParseDeclarations(const std::string& i_text) {
  const std::string text = WithoutComments(i_text);
  std::vector<VYRSvgDeclaration> declarations;
  size_t position = 0;
  while (position < text.size()) {
    size_t end = text.find(';', position);
    if (end == std::string::npos) end = text.size();
    const std::string declaration = text.substr(position, end - position);
    const size_t colon = declaration.find(':');
    if (colon != std::string::npos) {
      VYRSvgDeclaration parsed;
      parsed.name = VYRSvgValues::Trim(declaration.substr(0, colon));
      parsed.value = VYRSvgValues::Trim(declaration.substr(colon + 1));
      const size_t bang = parsed.value.rfind('!');
      if (bang != std::string::npos && VYRSvgValues::Trim(parsed.value.substr(bang + 1)) == "important") {
        parsed.important = true;
        parsed.value = VYRSvgValues::Trim(parsed.value.substr(0, bang));
      }
      if (!parsed.name.empty()) declarations.push_back(parsed);
    }
    position = end + 1;
  }
  return declarations;
}

void VYRSvgStyleSheet::AddRules(const std::string& i_text) {
  const std::string text = WithoutComments(i_text);
  size_t position = 0;
  while (position < text.size()) {
    const size_t open = text.find_first_of("{;", position);
    if (open == std::string::npos) break;
    const std::string prelude = VYRSvgValues::Trim(text.substr(position, open - position));
    if (text[open] == ';') {  // a statement such as @import: nothing to draw with
      position = open + 1;
      continue;
    }
    const size_t end = BlockEnd(text, open);
    position = end;
    if (prelude.empty() || prelude[0] == '@') continue;  // at-rules (@media, @font-face) are not applied
    const size_t close = end > open + 1 && text[end - 1] == '}' ? end - 1 : end;
    const std::vector<VYRSvgDeclaration> declarations = VYRSvgParseDeclarations(text.substr(open + 1, close - open - 1));
    size_t start = 0;
    while (start <= prelude.size()) {
      size_t comma = prelude.find(',', start);
      if (comma == std::string::npos) comma = prelude.size();
      Rule rule;
      if (ParseSelector(prelude.substr(start, comma - start), rule)) {
        rule.order = static_cast<int>(_rules.size());
        rule.declarations = declarations;
        _rules.push_back(std::move(rule));
      }
      start = comma + 1;
    }
  }
}

bool VYRSvgStyleSheet::ParseSelector(const std::string& i_text, Rule& o_rule) {
  const std::string text = VYRSvgValues::Trim(i_text);
  size_t position = 0;
  bool childNext = false;
  int ids = 0, others = 0, types = 0;
  while (position < text.size()) {
    Compound compound;
    compound.childOfPrevious = childNext;
    const size_t compoundStart = position;
    if (text[position] == '*') {
      ++position;
    } else {
      compound.type = ReadName(text, position);
      if (!compound.type.empty()) ++types;
    }
    bool more = true;
    while (more && position < text.size()) {
      const char c = text[position];
      if (c == '#' || c == '.') {
        ++position;
        const std::string name = ReadName(text, position);
        if (name.empty()) return false;
        if (c == '#') {
          compound.id = name;
          ++ids;
        } else {
          compound.classes.push_back(name);
          ++others;
        }
      } else if (c == '[') {
        const size_t close = text.find(']', position);
        if (close == std::string::npos) return false;
        const std::string test = text.substr(position + 1, close - position - 1);
        position = close + 1;
        Compound::AttributeTest attribute;
        const size_t equals = test.find('=');
        attribute.name = VYRSvgValues::Trim(test.substr(0, equals));
        if (equals != std::string::npos) {
          std::string value = VYRSvgValues::Trim(test.substr(equals + 1));
          if (value.size() >= 2 && (value[0] == '"' || value[0] == '\'') && value.back() == value[0]) {
            value = value.substr(1, value.size() - 2);
          }
          // [name~=value] and the other operators are not read.
          if (!attribute.name.empty() && !IsNameChar(attribute.name.back())) return false;
          attribute.value = value;
          attribute.hasValue = true;
        }
        if (attribute.name.empty()) return false;
        compound.attributes.push_back(attribute);
        ++others;
      } else {
        more = false;
      }
    }
    // A compound ends at white space, ">" or the end; anything else there (a
    // pseudo-class, "+", "~") is not read, and the selector is not applied.
    const size_t compoundEnd = position;
    if (compoundEnd == compoundStart) return false;
    while (position < text.size() && std::isspace(static_cast<unsigned char>(text[position]))) ++position;
    childNext = position < text.size() && text[position] == '>';
    if (childNext) {
      ++position;
      while (position < text.size() && std::isspace(static_cast<unsigned char>(text[position]))) ++position;
    } else if (position < text.size() && (position == compoundEnd || !StartsCompound(text[position]))) {
      return false;
    }
    o_rule.compounds.push_back(std::move(compound));
  }
  if (o_rule.compounds.empty() || childNext) return false;
  o_rule.specificity = ids * 10000 + others * 100 + types;
  return true;
}

bool VYRSvgStyleSheet::MatchesCompound(const Compound& i_compound, const VYRIDOMElement_var& i_element) {
  if (!i_compound.type.empty() && VYRSvgLocalName(i_element) != i_compound.type) return false;
  VYRUnicodeString value;
  if (!i_compound.id.empty()) {
    if (!VYRSucceeded(i_element.GetAttribute("id", value)) || value.GetStdString() != i_compound.id) return false;
  }
  if (!i_compound.classes.empty()) {
    value = VYRUnicodeString();
    i_element.GetAttribute("class", value);
    const std::string classes = " " + value.GetStdString() + " ";
    for (const std::string& name : i_compound.classes) {
      bool found = false;
      for (size_t at = classes.find(name); at != std::string::npos && !found; at = classes.find(name, at + 1)) {
        found = std::isspace(static_cast<unsigned char>(classes[at - 1])) &&
                std::isspace(static_cast<unsigned char>(classes[at + name.size()]));
      }
      if (!found) return false;
    }
  }
  for (const Compound::AttributeTest& attribute : i_compound.attributes) {
    if (!VYRSucceeded(i_element.GetAttribute(VYRUnicodeString(attribute.name), value))) return false;
    if (attribute.hasValue && value.GetStdString() != attribute.value) return false;
  }
  return true;
}

bool VYRSvgStyleSheet::Matches(const Rule& i_rule, const VYRIDOMElement_var& i_element,
                               const std::vector<VYRIDOMElement_var>& i_ancestors) {
  const std::vector<Compound>& compounds = i_rule.compounds;
  const int last = static_cast<int>(compounds.size()) - 1;
  if (!MatchesCompound(compounds[last], i_element)) return false;
  // Whether compounds [0, i_compound] match within ancestors [0, i_below).
  // Failed pairs are remembered, so long chains of "*" stay linear in
  // the depth for each compound.
  const int depth = static_cast<int>(i_ancestors.size());
  std::vector<char> failed(static_cast<size_t>(last + 1) * static_cast<size_t>(depth + 1), 0);
  std::function<bool(int, int)> matchesBelow = [&](int i_compound, int i_below) -> bool {
    if (i_compound < 0) return true;
    char& known = failed[static_cast<size_t>(i_compound) * static_cast<size_t>(depth + 1) + static_cast<size_t>(i_below)];
    if (known) return false;
    const bool child = compounds[i_compound + 1].childOfPrevious;
    for (int k = i_below - 1; k >= 0; --k) {
      if (MatchesCompound(compounds[i_compound], i_ancestors[k]) && matchesBelow(i_compound - 1, k)) return true;
      if (child) break;
    }
    known = 1;
    return false;
  };
  return matchesBelow(last - 1, depth);
}

void VYRSvgStyleSheet::Match(const VYRIDOMElement_var& i_element, const std::vector<VYRIDOMElement_var>& i_ancestors) {
  std::vector<const Rule*> matched;
  for (const Rule& rule : _rules) {
    if (Matches(rule, i_element, i_ancestors)) matched.push_back(&rule);
  }
  if (matched.empty()) return;
  std::stable_sort(matched.begin(), matched.end(), [](const Rule* i_first, const Rule* i_second) {
    return i_first->specificity != i_second->specificity ? i_first->specificity < i_second->specificity
                                                         : i_first->order < i_second->order;
  });
  Cascade& cascade = _cascades[i_element.GetIdentity()];
  for (const Rule* pRule : matched) {
    for (const VYRSvgDeclaration& declaration : pRule->declarations) {
      (declaration.important ? cascade.important : cascade.normal).push_back(declaration);
    }
  }
}

const VYRSvgStyleSheet::Cascade* VYRSvgStyleSheet::Find(const VYRIDOMElement_var& i_element) const {
  auto it = _cascades.find(i_element.GetIdentity());
  return it == _cascades.end() ? nullptr : &it->second;
}

const std::string* VYRSvgStyleSheet::FindValue(const VYRIDOMElement_var& i_element, const std::string& i_name,
                                               bool i_important) const {
  const Cascade* pCascade = Find(i_element);
  if (!pCascade) return nullptr;
  const std::vector<VYRSvgDeclaration>& list = i_important ? pCascade->important : pCascade->normal;
  for (auto it = list.rbegin(); it != list.rend(); ++it) {
    if (it->name == i_name) return &it->value;
  }
  return nullptr;
}
