# The package's version; it follows the library's (project(GxCart VERSION ...)
# in CMakeLists.txt), and pyproject.toml reads it from here.
__version__ = "0.1.0"
