// Boost.URL's compiled part, built into this library so that no Boost library is linked.
#include <boost/url/src.hpp>
