#include "qtmedia/codecs.h"

#include <dlfcn.h>

#include <array>

namespace tessera::qtmedia {

namespace {

// An element by its name, and the package that brings it.
struct Element {
  const char* name;
  const char* package;
};

constexpr const char* kBase = "gstreamer1.0-plugins-base";
constexpr const char* kGood = "gstreamer1.0-plugins-good";
constexpr std::array kNeeded = {
    Element{"playbin", kBase},      Element{"decodebin", kBase},
    Element{"audioconvert", kBase}, Element{"audioresample", kBase},
    Element{"volume", kBase},       Element{"videoconvert", kBase},
    Element{"appsink", kBase},      Element{"typefind", "libgstreamer1.0-0"},
    Element{"wavparse", kGood},     Element{"autoaudiosink", kGood},
    Element{"pulsesink", kGood},
};
constexpr Element kCodecs = {"avdec_h264", "gstreamer1.0-libav"};

// The library is there, since the toolkit's own part needs it; three calls of it are all that is wanted here.
bool Has(const char* element) {
  static void* const library = dlopen("libgstreamer-1.0.so.0", RTLD_LAZY | RTLD_LOCAL);
  if (library == nullptr) return false;
  using Init = int (*)(int*, char***, void**);
  using Find = void* (*)(const char*);
  using Unref = void (*)(void*);
  const auto init = reinterpret_cast<Init>(dlsym(library, "gst_init_check"));
  const auto find = reinterpret_cast<Find>(dlsym(library, "gst_element_factory_find"));
  const auto unref = reinterpret_cast<Unref>(dlsym(library, "gst_object_unref"));
  if (init == nullptr || find == nullptr || unref == nullptr || init(nullptr, nullptr, nullptr) == 0)
    return false;
  void* const factory = find(element);
  if (factory != nullptr) unref(factory);
  return factory != nullptr;
}

}  // namespace

std::string MissingPackage() {
  for (const Element& element : kNeeded) {
    if (!Has(element.name)) return element.package;
  }
  return {};
}

std::string MissingCodecs() {
  return Has(kCodecs.name) ? "" : kCodecs.package;
}

}  // namespace tessera::qtmedia
