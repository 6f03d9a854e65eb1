# Boots emulated machines and checks what smbios-tree says in them; sourced by other scripts. They set
#   emulator     the emulator and its first arguments
#   tool         smbios-tree for the machine; the libraries that it needs, if any, are put into $work/root
#   make_image   the command that makes tables of text (samples/TableText.h)
# vm/init says what happens in a machine.

# The arguments for a machine with 640 MiB of memory and 2 sockets of 2 cores, and what its tree contains.
hardware=(-m 640 -smp 4,sockets=2,cores=2)
uuid=00112233-4455-6677-8899-aabbccddeeff
identity=(
    -smbios "type=0,vendor=Test firmware,version=4.2,date=02/03/2004,release=5.6"
    -smbios "type=1,manufacturer=Maker,product=Machine,version=v7,serial=S-1,uuid=$uuid"
    -smbios "type=2,manufacturer=Board maker,product=Board,version=v8,serial=S-2,asset=A-2"
    -smbios "type=3,manufacturer=Case maker,version=v9,serial=S-3,asset=A-3"
    -smbios "type=4,sock_pfx=SOCKET,manufacturer=CPU maker,serial=S-4,max-speed=3100,current-speed=2900"
    -smbios "type=17,loc_pfx=SLOT,bank=BANK,manufacturer=RAM maker,serial=S-17,part=P-17,speed=2667"
)
told="\
Type1/ Manufacturer = Maker; ProductName = Machine; Version = v7; SerialNo = S-1; UUID = $uuid
Type2[1]/ Manufacturer = Board maker; Product = Board; AssetTag = A-2
Type3/ Manufacturer = Case maker; AssetTagNo = A-3
ProcessorInfo/ TotalNoOfProcessor = 2; TotalNoOfProcessorPresent = 2
ProcessorInfo[1]/ SocketDesignation = SOCKET 0
ProcessorInfo[2]/ SocketDesignation = SOCKET 1; ProcessorManufacturer = CPU maker; CoreCount = 2
ProcessorInfo[2]/ MaxSpeed = 3100; CurrentSpeed = 2900
MemoryArray/ TotalNoOfArray = 1
MemoryArray[1]/ TotalNoOfDevicePresent = 1
MemoryArray[1]/MemoryDevice[1]/ Size = 640; DeviceLocator = SLOT 0; Speed = 2667; PartNumber = P-17"

# Gets a machine's kernel and shell from Debian's packages, once. Keeps the lists of packages apart from this
# system's, which need not have that architecture.
fetch_machine() { # ARCHITECTURE
    local folder=$PWD/build/vm/$1 kernel
    [ -e "$folder/busybox" ] && return
    local for_machine=(-o APT::Architecture="$1" -o APT::Architectures="$1" -o Acquire::Languages=none
        -o Dir::State="$folder" -o Dir::State::Lists="$folder/lists" -o Dir::State::Status=/dev/null
        -o Dir::Cache="$folder" -o APT::Sandbox::User=root)
    mkdir -p "$folder"/{lists,archives}/partial
    apt-get "${for_machine[@]}" update -qq || true # the packages may be in those lists that can be read
    kernel=$(apt-cache "${for_machine[@]}" depends -i "linux-image-cloud-$1" | sed -n 's/.*Depends: //p')
    (cd "$work" && apt-get "${for_machine[@]}" download -qq "$kernel" busybox-static)
    dpkg-deb --fsys-tarfile "$work/$kernel"_*.deb | tar -xO --wildcards './boot/vmlinuz-*' >"$folder/vmlinuz"
    dpkg-deb --fsys-tarfile "$work"/busybox-static_*.deb | tar -xO --wildcards '*bin/busybox' >"$work/busybox"
    mv "$work/busybox" "$folder"
}

# Makes a file of each structure in standard input, a line each. `given` becomes the emulator's arguments for
# them.
read_structures() {
    local line
    given=()
    while read -r line; do
        given+=(-smbios "file=$work/structure-${#given[@]}")
        # Behind an entry point, make-image adds no end structure.
        printf 'entry 2.7\n%s\n' "$line" | "${make_image[@]}" | tail -c +32 >"${given[-1]#file=}"
    done
}

# Boots a machine, of which all that follows speaks.
boot() { # NAME ARCHITECTURE EMULATOR_ARGUMENTS...
    local root=$work/root
    machine=$1
    fetch_machine "$2"
    mkdir -p "$root"/{bin,dev,etc,proc,sys,tmp,run/lock}
    install scripts/vm/init "$root"
    install "build/vm/$2/busybox" "$tool" "$root/bin"
    (cd "$root" && find . | cpio -o -H newc --quiet) >"$work/initramfs"
    check "$machine: boots and comes to its end" run_to_end -kernel "build/vm/$2/vmlinuz" "${@:3}"
}

# What the machine says goes to $work/said.
run_to_end() { # EMULATOR_ARGUMENTS...
    : >"$work/console"
    "${emulator[@]}" "${hardware[@]}" -nodefaults -nographic -no-reboot -serial "file:$work/console" \
        -initrd "$work/initramfs" -append "console=ttyS0 console=ttyAMA0 quiet loglevel=0 panic=-1" "$@" </dev/null || true
    tr -d '\r' <"$work/console" >"$work/said"
    tail -n 5 "$work/said"
    grep -a -x '== end' "$work/said"
}

# What the machine said in a situation.
said() { # SITUATION
    awk -v mark="== $1" '$0 == mark { inside = 1; next } /^== / { inside = 0 } inside' "$work/said"
}

# Checks that the machine succeeded and said these lines, and maybe others.
says() { # SITUATION NAME LINES
    check_same "$machine: $2" "$3"$'\n'"status 0" "$(grep -a -Fx -f <(said "$1") <<<"$3"$'\n'"status 0")"
}

# Checks that the machine's tree has some leaves: "Type3/ Version = v9; SerialNo = S-3" is a node with two of
# them.
has() { # SITUATION NAME LEAVES
    says "$1" "$2" "$(awk '{ gsub(/; /, "\n/SMBIOS/" $1); sub(/\/ /, "/"); print "/SMBIOS/" $0 }' <<<"$3")"
}

# Checks that the machine said these lines and no others.
says_only() { # SITUATION NAME LINES
    check_same "$machine: $2" "$3" "$(said "$1")"
}

refuses() { # SITUATION NAME MESSAGE
    says_only "$1" "$2" "$3"$'\n'"status 1"
}
