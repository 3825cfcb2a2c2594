#include "help/ChmHelpArchive.h"

#include "help/ChmArchive.h"

namespace {

class ChmHelpArchive : public HelpArchive {
public:
  explicit ChmHelpArchive(std::unique_ptr<ChmArchive> archive) : m_archive(std::move(archive)) {}

  bool Read(std::string const & name, std::string & bytes) override {
    return m_archive->Extract(name, bytes) == ChmError::None;
  }

  bool Contains(std::string const & name) const override { return m_archive->Contains(name); }

private:
  std::unique_ptr<ChmArchive> m_archive;
};

}  // namespace

std::unique_ptr<HelpArchive> OpenChmHelpArchive(std::string const & path, std::string & error) {
  ChmError failure = ChmError::None;
  std::unique_ptr<ChmArchive> archive = ChmArchive::Open(path, failure);
  if (!archive) {
    error = ChmErrorText(failure);
    return nullptr;
  }
  return std::make_unique<ChmHelpArchive>(std::move(archive));
}
