# shellcheck shell=bash
# Part of ./dev: bare systems of this machine's distribution, below build/bare, in which things are tried.

as_root() {
    if [[ $EUID -eq 0 ]]; then
        "$@"
    else
        sudo "$@"
    fi
}

# Where this machine gets the distribution's packages from; others that it may know beside them don't count.
debian_sources() {
    # shellcheck disable=SC2016 # apt fills these in
    apt-get indextargets --format '$(ORIGIN)|deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
        sed -n 's/^Debian|//p' | sort -u
}

# Unpacks a bare system with the given packages as build/bare/NAME. What it is unpacked from is kept and made anew
# when the sources or the packages are others.
fresh_bare_system() {
    local name="$1" folder="build/bare" codename sources key
    shift
    codename="$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)"
    sources="$(debian_sources)"
    if [[ -z $sources ]]; then
        apt_get update
        sources="$(debian_sources)"
    fi
    [[ -n $sources ]] || fail "apt knows no source of Debian's packages"
    key="$(printf '%s\n' "$codename" "$sources" "$@" | sha256sum | cut -c 1-16)"

    mkdir -p "$folder/archives"
    if [[ ! -f $folder/$key.tar ]]; then
        say "Making a bare system${1:+ with $*}"
        printf '%s\n' "$sources" >"$folder/sources.list"
        local include=()
        (($# == 0)) || include=(--include="$(IFS=,; printf '%s' "$*")")
        run as_root mmdebstrap --quiet --mode=root --variant=minbase "${include[@]}" "$codename" \
            "$folder/$key.part.tar" "$folder/sources.list"
        mv "$folder/$key.part.tar" "$folder/$key.tar"
    fi
    as_root rm -rf --one-file-system "${folder:?}/$name"
    mkdir -p "$folder/$name"
    as_root tar -xpf "$folder/$key.tar" -C "$folder/$name"
}

# Runs a command in a bare system. What is mounted for it is seen by it alone and gone when it ends. Packages that it
# has fetched are kept for the next time.
in_bare_system() {
    local place="$root/build/bare/$1"
    shift
    as_root cp -L /etc/resolv.conf "$place/etc/resolv.conf"
    apt-config dump | { grep '^Acquire::https\?::Proxy' || true; } | as_root tee "$place/etc/apt/apt.conf.d/50proxy" >/dev/null
    as_root find build/bare/archives -name '*.deb' -exec cp -t "$place/var/cache/apt/archives" '{}' +
    local status=0
    show chroot "${place#"$root"/}" "$@"
    # shellcheck disable=SC2016 # the inner shell expands it
    as_root unshare --mount --pid --fork --propagation private bash -c '
        place="$1"
        shift
        mount -t proc proc "$place/proc"
        exec chroot "$place" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
            DEBIAN_FRONTEND=noninteractive ${http_proxy:+http_proxy="$http_proxy"} ${https_proxy:+https_proxy="$https_proxy"} "$@"
    ' bare "$place" "$@" || status=$?
    as_root find "$place/var/cache/apt/archives" -name '*.deb' -exec mv -t build/bare/archives '{}' +
    return "$status"
}
