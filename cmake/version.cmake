# The one place that says the version; the package, the soname and the programs take it from here.
set(QXFMT_VERSION 0.2.0)
