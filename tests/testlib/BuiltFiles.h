#pragma once

#include <QString>

/// Where the programs, libraries and texts lie that tests start, load and read. The one source that knows it
/// is compiled anew in each build folder; what asks it is the same object in all of them, which a compiler
/// cache makes only once.
namespace BuiltFiles
{

/// The library that a host loads.
[[nodiscard]] QString module();

/// One of the tests' own that is loaded in the same way.
[[nodiscard]] QString fakeModule();

[[nodiscard]] QString bench();
[[nodiscard]] QString controller();
[[nodiscard]] QString pictures();

/// A test program whose tests say nothing.
[[nodiscard]] QString nothingAsserted();

/// The folders of the compiled translations.
[[nodiscard]] QString translations();
[[nodiscard]] QString benchTranslations();

/// The folder of the scenarios that are supplied with the bench, and one of them.
[[nodiscard]] QString scenarios();
[[nodiscard]] QString scenario(const QString &fileName);

/// The roots of the sources and of the build.
[[nodiscard]] QString sources();
[[nodiscard]] QString build();

} // namespace BuiltFiles
