#pragma once
// A ConfigurationSection on a tree in memory, for tests of what the base
// class builds on ReadKey/WriteKey. Indexed children are named "name index",
// as in the registry store; sections made from one another share the tree.

#include <map>
#include <memory>
#include <string>

#include "utl/ConfigurationSection.h"
#include "utl/Utf.h"

class InMemorySection : public ConfigurationSection {
public:
  struct Node {
    std::string name;
    Node * parent = nullptr;
    std::map<std::string, std::string> keys;
    std::map<std::string, std::unique_ptr<Node>> children;
  };

  InMemorySection() : mRoot(std::make_shared<Node>()), mNode(mRoot.get()) {}

  using ConfigurationSection::WriteKey;

  // The stored text of a key, or "<absent>".
  std::string Raw(char const * name) const {
    auto const found = mNode->keys.find(name);
    return found == mNode->keys.end() ? "<absent>" : found->second;
  }
  void SetRaw(char const * name, std::string const & text) { mNode->keys[name] = text; }

  ConfigurationSection * Copy() const override { return new InMemorySection(mRoot, mNode); }
  void ChangeSection(char const * name) override {
    if (mNode->parent != nullptr) mNode = &Child(*mNode->parent, name);
  }
  bool ChangeSubSection(char const * name, int index) override {
    return ChangeSubSection(Indexed(name, index).c_str());
  }
  bool ChangeSubSection(char const * name) override {
    auto const found = mNode->children.find(name);
    if (found == mNode->children.end()) return false;
    mNode = found->second.get();
    return true;
  }
  ConfigurationSection * CreateSubSection(char const * name, int index) const override {
    return CreateSubSection(Indexed(name, index).c_str());
  }
  ConfigurationSection * CreateSubSection(char const * name) const override {
    return new InMemorySection(mRoot, &Child(*mNode, name));
  }
  bool SupportsSubSections() const override { return true; }
  bool DeleteKey(char const * name) override { return mNode->keys.erase(name) > 0; }
  bool DeleteSection() override {
    if (mNode->parent == nullptr) return false;
    Node * parent = mNode->parent;
    parent->children.erase(mNode->name);
    mNode = parent;
    return true;
  }
  bool Flush() const override { return true; }
  bool IsEmpty() const override { return mNode->keys.empty() && mNode->children.empty(); }
  bool HasSection(char const * name, int index) const override {
    return mNode->children.count(Indexed(name, index)) > 0;
  }
  bool HasKey(char const * name) const override { return mNode->keys.count(name) > 0; }
  bool ReadKey(char const * name, std::wstring & value) const override {
    std::string text;
    if (!ReadKey(name, text)) return false;
    value = vx3::Utf8ToWide(text);
    return true;
  }
  bool ReadKey(char const * name, std::string & value) const override {
    auto const found = mNode->keys.find(name);
    if (found == mNode->keys.end()) return false;
    value = found->second;
    return true;
  }
  bool WriteKey(char const * name, wchar_t const * value) override {
    return WriteKey(name, vx3::WideToUtf8(value).c_str());
  }
  bool WriteKey(char const * name, char const * value) override {
    mNode->keys[name] = value;
    return true;
  }
  bool WriteToSection(ConfigurationSection * target) const override {
    for (auto const & [name, text] : mNode->keys) target->WriteKey(name.c_str(), text.c_str());
    return true;
  }

private:
  InMemorySection(std::shared_ptr<Node> root, Node * node) : mRoot(std::move(root)), mNode(node) {}

  static std::string Indexed(char const * name, int index) {
    return std::string(name) + " " + std::to_string(index);
  }
  static Node & Child(Node & parent, std::string const & name) {
    std::unique_ptr<Node> & child = parent.children[name];
    if (!child) {
      child = std::make_unique<Node>();
      child->name = name;
      child->parent = &parent;
    }
    return *child;
  }

  std::shared_ptr<Node> mRoot;
  Node * mNode;
};
