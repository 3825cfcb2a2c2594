#pragma once
// Turns a help number into the address of its topic, as a help control
// does it: the help map ("#IVB") is read from the first file it is asked
// of and kept (a later file uses the same map until the map is reset),
// the topic name comes from "#STRINGS" of the current file. The archive
// and its names stay open between calls, so that later lookups cost an
// index search only.

#include <climits>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "help/ChmArchive.h"
#include "help/ChmSystemStreams.h"
#include "platform/WinHResult.h"

constexpr HRESULT STG_E_FILENOTFOUND = static_cast<HRESULT>(0x80030002u);
constexpr HRESULT STG_E_PATHNOTFOUND = static_cast<HRESULT>(0x80030003u);
constexpr HRESULT STG_E_READFAULT = static_cast<HRESULT>(0x8003001Eu);

class ChmHelpMap {
public:
  // The address is built in a buffer this large: a Linux path, its
  // encoding, and a topic.
  static constexpr std::size_t kAddressRoom = 3 * PATH_MAX + PATH_MAX;
  static constexpr std::size_t kChunk = 64;

  // S_OK with "its:<file>::<topic>" in `address`, or the failure code:
  // STG_E_PATHNOTFOUND (no file, or it cannot be opened), STG_E_FILENOTFOUND
  // (no "#IVB"), STG_E_READFAULT ("#IVB" shorter than it says),
  // E_OUTOFMEMORY, E_FAIL (an empty map, or `helpId` not in it). A topic
  // name that cannot be read whole leaves the address without a topic.
  HRESULT Resolve(std::string const & chmPath, std::uint32_t helpId, std::string & address);

  bool IsLoaded() const { return mLoaded; }
  std::size_t GetPairCount() const { return mPairCount; }
  // Forgets the map (the next lookup reads it again).
  void Reset();

private:
  HRESULT Load(std::string const & chmPath);
  HRESULT Open(std::string const & chmPath);
  bool ReadTopic(std::uint32_t offset, std::size_t used, std::string & topic) const;
  // The offset into "#STRINGS" of the first pair of `helpId`.
  bool Find(std::uint32_t helpId, std::uint32_t & offset);

  bool mLoaded = false;
  // The pairs as read: the first lookup searches them in place (cheaper
  // than any index); from the second on, a sorted index of (number, pair)
  // answers.
  std::string mMap;
  std::size_t mPairCount = 0;
  int mLookups = 0;
  std::vector<std::pair<std::uint32_t, std::uint32_t>> mIndex;
  std::string mOpenPath;
  std::unique_ptr<ChmArchive> mArchive;
  std::string mStrings;
  bool mStringsRead = false;
};
