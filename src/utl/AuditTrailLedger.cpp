#include "utl/AuditTrailLedger.h"

#include <sstream>

#include "utl/AtomicFile.h"
#include "utl/Exception.h"
#include "utl/Paths.h"
#include "utl/WholeFile.h"

AuditTrailLedger::AuditTrailLedger(std::string keyFolder)
    : mFolder(VxPathAppend(std::move(keyFolder), "ledger")) {}

bool AuditTrailLedger::IsValidTrailId(std::string const & id) {
  if (id.size() != 32) return false;
  for (char const c : id)
    if (!((c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'))) return false;
  return true;
}

std::string AuditTrailLedger::PathOf(std::string const & trailId) const {
  return VxPathAppend(mFolder, trailId);
}

bool AuditTrailLedger::Read(std::string const & trailId, uint64_t & count,
                            std::string & headHex) const {
  if (!IsValidTrailId(trailId)) return false;
  std::string text;
  try {
    if (!vx3::ReadWholeFile(PathOf(trailId), 4096, text)) return false;
  } catch (Exception const &) {
    return false;
  }
  std::istringstream in(text);
  uint64_t readCount = 0;
  std::string readHead;
  if (!(in >> readCount >> readHead)) return false;
  count = readCount;
  headHex = readHead;
  return true;
}

void AuditTrailLedger::Record(std::string const & trailId, uint64_t count,
                              std::string const & headHex) const {
  if (!IsValidTrailId(trailId)) return;
  if (!VxCreateFolder(mFolder))
    throw Exception(ExceptionMessage::translate("The folder {1} cannot be created.") % mFolder);
  vx3::WriteFileAtomically(PathOf(trailId), std::to_string(count) + " " + headHex + "\n", 0600);
}
