#pragma once

/// Makes the compiled-in pictures available under their ":/NAME.png" paths.
///
/// To be called before a picture is used; calling it again is harmless. Each picture also has a NAME@2x.png
/// of twice the size, which Qt takes by itself on high-density screens.
void loadResources();
