#pragma once

namespace VOXI {

class QtObject2;

/// Whether the back end is being taken down, and every peer with it.
bool isBackEndGoing() noexcept;

/// What a peer that goes does about the Qt objects inside it. Most belong to its object and go with
/// it; what another object owns, and the peer only shows, is let go: it lives on, alone and hidden.
/// GUI thread only.
class QtTreeEnd
{
public:
    /// For a peer whose deletion was scheduled just now: what the program finds right after it has
    /// destroyed a container stands where it will stand.
    static void letOthersGo(QtObject2& top);

    /// For a peer whose Qt object is being destroyed: lets go what has come in since, or what Qt
    /// takes along unasked. And Qt destroys children by recursion; so that the deepest tree does
    /// not overflow the stack, it is cut into pieces, which are deleted from below.
    static void prepare(QtObject2& top);

private:
    class Walk;
};

} // namespace VOXI
