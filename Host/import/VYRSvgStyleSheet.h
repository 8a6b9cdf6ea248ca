#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "VYRXMLDOM.h"

// One "name: value" of a rule or a style attribute.
struct VYRSvgDeclaration {
  std::string name;
  std::string value;
  bool important = false;
};

// The local name of an element: "svg:rect" and "rect" are both "rect".
std::string VYRSvgLocalName(const VYRIDOMNode_var& i_node);

// The declarations of a declaration block, "name: value; ...", in order.
std::vector<VYRSvgDeclaration> VYRSvgParseDeclarations(const std::string& i_text);

// The rules of a document's style elements and the declarations they give
// each element. Selectors are type, universal, id, class and attribute
// selectors ([name], [name=value]) joined by descendant and child
// combinators; a selector using anything else matches nothing.
class VYRSvgStyleSheet {
 public:
  // The declarations matched for one element, each list in cascade order:
  // the normal ones go before its style attribute, the important ones after.
  struct Cascade {
    std::vector<VYRSvgDeclaration> normal;
    std::vector<VYRSvgDeclaration> important;
  };

  // Adds the rules of a style sheet's text, after those already added.
  void AddRules(const std::string& i_text);
  bool IsEmpty() const { return _rules.empty(); }

  // Works out the declarations for an element below the given ancestors
  // (outermost first), to be found again by Find.
  void Match(const VYRIDOMElement_var& i_element, const std::vector<VYRIDOMElement_var>& i_ancestors);
  // Null when no rule matched the element.
  const Cascade* Find(const VYRIDOMElement_var& i_element) const;
  // The value the important or the normal rules give the element for one
  // property, or null.
  const std::string* FindValue(const VYRIDOMElement_var& i_element, const std::string& i_name,
                               bool i_important) const;

 private:
  // One compound selector: "rect.a#b[x]".
  struct Compound {
    std::string type;  // empty for any
    std::string id;
    std::vector<std::string> classes;
    struct AttributeTest {
      std::string name;
      std::string value;
      bool hasValue = false;  // [name=value], or else [name]
    };
    std::vector<AttributeTest> attributes;
    bool childOfPrevious = false;  // joined to the compound before it by ">"
  };
  struct Rule {
    std::vector<Compound> compounds;  // the subject last
    int specificity = 0;
    int order = 0;
    std::vector<VYRSvgDeclaration> declarations;
  };

  static bool ParseSelector(const std::string& i_text, Rule& o_rule);
  static bool MatchesCompound(const Compound& i_compound, const VYRIDOMElement_var& i_element);
  static bool Matches(const Rule& i_rule, const VYRIDOMElement_var& i_element,
                      const std::vector<VYRIDOMElement_var>& i_ancestors);

  std::vector<Rule> _rules;
  std::unordered_map<const void*, Cascade> _cascades;
};
