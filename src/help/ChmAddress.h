#pragma once
// Addresses of pages inside compiled help files: "its:<file>::<inner>".
// The file's path is percent-encoded ("#", "?", "%", a space or a ":" in a
// folder's name would break the address otherwise); the inner path is the
// name in the archive. The browser resolves relative links against such an
// address as a path, so a link that climbs out of the archive loses the
// "::" and is no page of it.

#include <string>
#include <string_view>

// "its:<encoded file>::<topic>"; a topic without a leading "/" gets one.
// The topic may carry a "#fragment"; spaces and bytes beyond ASCII in it
// are percent-encoded.
std::string MakeChmAddress(std::string const & chmPath, std::string_view topic);

// Splits `url` ("its:" in any case) into the file's path (decoded) and the
// inner name (decoded, without query or fragment, "." and ".." resolved,
// with its leading "/"). False for anything else: another scheme, no "::",
// a bad escape, a zero byte, a ".." above the archive's root, an empty name.
bool ParseChmAddress(std::string_view url, std::string & chmPath, std::string & inner);

// Links written for other systems' help viewers, "ms-its:file::/x.htm" and
// "mk:@MSITStore:file::/x.htm" (any case): the file name (as written) and
// the topic. False for other links.
bool ParseForeignChmLink(std::string_view url, std::string & file, std::string & topic);
