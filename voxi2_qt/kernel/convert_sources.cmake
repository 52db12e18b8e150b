# The conversions between toolkit values and Qt values, relative to voxi2_qt.
set(VOXI2_QT_CONVERT_HEADERS
    export/include/voxi2_qt/kernel/qtconvert.h
    export/include/voxi2_qt/kernel/qtgeometry.h
    export/include/voxi2_qt/kernel/qtinput.h
    export/include/voxi2_qt/kernel/qttext.h
    export/include/voxi2_qt/kernel/qtwindowflags.h)
set(VOXI2_QT_CONVERT_SOURCES
    kernel/qtinput.cpp
    kernel/qtkey.cpp
    kernel/qttext.cpp
    kernel/qtwindowflags.cpp)
