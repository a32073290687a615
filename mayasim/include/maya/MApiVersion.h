#pragma once
// Every plug-in exports the API version it was built against; Maya refuses a
// module without it. Only one source file of a plug-in may emit these, after
// an API header has defined PLUGIN_EXPORT (MFnPlugin.h includes this one).

// mayasim's own sources (built with mayasim_EXPORTS) are no plug-in.
#if !defined(MNoVersionString) && !defined(mayasim_EXPORTS)
#define MAYASIM_VERSION_TEXT(version) #version
#define MAYASIM_VERSION_STRING(version) MAYASIM_VERSION_TEXT(version)
extern "C" {
PLUGIN_EXPORT char MApiVersion[] = MAYASIM_VERSION_STRING(MAYA_API_VERSION);
PLUGIN_EXPORT char ADSK_PLUGIN_SIGNATURE[] = "mayasim";
}
#undef MAYASIM_VERSION_STRING
#undef MAYASIM_VERSION_TEXT
#endif
