plugins {
    id("com.android.library")
}

val repository = rootDir.parentFile

android {
    namespace = "org.vornrenderer"
    compileSdk = 34

    defaultConfig {
        minSdk = 24
        consumerProguardFiles("consumer-rules.pro")
        ndk {
            abiFilters += listOf("armeabi-v7a", "arm64-v8a")
        }
        externalNativeBuild {
            cmake {
                // The two shared objects pass exceptions and a vector, so they need one C++ runtime.
                arguments += listOf(
                    "-DANDROID_STL=c++_shared",
                    "-DVORN_BUILD_JAVA=ON",
                    "-DVORN_BUILD_TOOLS=OFF",
                    "-DVORN_BUILD_TESTS=OFF",
                    "-DVORN_BUILD_BENCH=OFF",
                    "-DVORN_WARNINGS_AS_ERRORS=OFF",
                )
                targets += listOf("vornrenderer", "vornrenderer_jni")
            }
        }
    }

    externalNativeBuild {
        cmake {
            path = repository.resolve("CMakeLists.txt")
            version = "3.31.6" // Or any other from 3.25 on.
        }
    }

    sourceSets {
        getByName("main") {
            java.setSrcDirs(listOf(repository.resolve("bindings/java/src")))
        }
    }

    compileOptions {
        sourceCompatibility = JavaVersion.VERSION_11
        targetCompatibility = JavaVersion.VERSION_11
    }
}

dependencies {
    compileOnly("org.jetbrains:annotations:23.0.0")
}
