// Schemes of the application's own in WebKit, and the browser library's
// entry point for them (html/HtmlBrowser.h). The scheme is registered
// straight on WebKit's default context, with a callback that keeps no
// pointer to any view: a view's own registration would call back through
// that view, which may be gone when a later view asks.

#include <dlfcn.h>
#include <gio/gio.h>

#include <map>
#include <string>

#include "html/HtmlBrowser.h"
#include "html/WebKitBrowser.h"

namespace {

using RequestCallback = void (*)(void * request, gpointer data);
using GetDefaultContext = void * (*)();
using RegisterScheme = void (*)(void * context, char const * scheme, RequestCallback, gpointer,
                                GDestroyNotify);
using GetUri = char const * (*)(void * request);
using Finish = void (*)(void * request, GInputStream * stream, gint64 length,
                        char const * mimeType);
using FinishError = void (*)(void * request, GError * error);

template <typename Function>
Function WebKitFunction(char const * name) {
  // The browser library links WebKit (through wx's web view); the view
  // loads this library with RTLD_LOCAL, so look in its own scope.
  static void * const scope = [] {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void *>(&WebKitFunction<GetUri>), &info) == 0 ||
        info.dli_fname == nullptr)
      return RTLD_DEFAULT;
    void * self = dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
    return self != nullptr ? self : RTLD_DEFAULT;
  }();
  return reinterpret_cast<Function>(dlsym(scope, name));
}

void OnRequest(void * request, gpointer data) {
  static auto const getUri = WebKitFunction<GetUri>("webkit_uri_scheme_request_get_uri");
  static auto const finish = WebKitFunction<Finish>("webkit_uri_scheme_request_finish");
  static auto const finishError =
      WebKitFunction<FinishError>("webkit_uri_scheme_request_finish_error");
  auto * const server = static_cast<UriSchemeServer *>(data);
  char const * const uri = getUri(request);
  std::string bytes;
  std::string mimeType;
  std::string error;
  if (uri == nullptr || !server->Serve(uri, bytes, mimeType, error)) {
    GError * gError = g_error_new(G_IO_ERROR, G_IO_ERROR_NOT_FOUND, "%s",
                                  error.empty() ? "not found" : error.c_str());
    finishError(request, gError);
    g_error_free(gError);
    return;
  }
  auto const length = static_cast<gint64>(bytes.size());
  GBytes * payload = g_bytes_new(bytes.data(), bytes.size());
  GInputStream * stream = g_memory_input_stream_new_from_bytes(payload);
  g_bytes_unref(payload);
  finish(request, stream, length, mimeType.c_str());
  g_object_unref(stream);
}

}  // namespace

extern "C" __attribute__((visibility("default"))) bool TalvoRegisterUriScheme(
    char const * scheme, UriSchemeServer * server) {
  static std::map<std::string, UriSchemeServer *> registered;
  if (scheme == nullptr || server == nullptr || registered.count(scheme) != 0) return false;
  WebKitBrowser::ChooseRendering();
  auto const getDefault = WebKitFunction<GetDefaultContext>("webkit_web_context_get_default");
  auto const registerScheme =
      WebKitFunction<RegisterScheme>("webkit_web_context_register_uri_scheme");
  if (getDefault == nullptr || registerScheme == nullptr) return false;
  registerScheme(getDefault(), scheme, &OnRequest, server, nullptr);
  registered.emplace(scheme, server);
  return true;
}
