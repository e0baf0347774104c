# Zunbrix: the two commands a fresh machine needs are `make demo` and `make check`.
BUILD_DIR ?= build
CMAKE_FLAGS ?=

.PHONY: all deps configure build check bench demo clean

all: build

deps:
	./scripts/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD_DIR) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZUNBRIX_WERROR=ON $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD_DIR)

check: build
	cd $(BUILD_DIR) && ctest --output-on-failure --timeout 900

bench: build
	@for b in $(BUILD_DIR)/bench/*; do [ -x "$$b" ] || continue; "$$b" || exit 1; done

demo: build
	@echo "make demo: the demo multicart comes with the build driver; for now this builds the tools only."

clean:
	rm -rf $(BUILD_DIR)
