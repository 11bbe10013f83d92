plugins {
    alias(libs.plugins.android.library)
    `maven-publish`
}

val repository = rootDir.parentFile
val libraryVersion = Regex("""project\(vornrenderer VERSION (\S+)""")
    .find(repository.resolve("CMakeLists.txt").readText())!!.groupValues[1]

android {
    namespace = "org.vornrenderer"
    compileSdk = libs.versions.compileSdk.get().toInt()
    resourcePrefix = "vorn"
    ndkVersion = libs.versions.ndk.get()

    defaultConfig {
        minSdk = libs.versions.minSdk.get().toInt()
        consumerProguardFiles("consumer-rules.pro")
        ndk {
            abiFilters += listOf("armeabi-v7a", "arm64-v8a", "x86_64")
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
            version = libs.versions.cmake.get()
        }
    }

    // For C++ in applications: find_package(vornrenderer CONFIG), vornrenderer::vornrenderer.
    buildFeatures {
        prefabPublishing = true
    }
    prefab {
        create("vornrenderer") {
            headers = repository.resolve("include").path
        }
    }

    sourceSets {
        getByName("main") {
            java.srcDir(repository.resolve("bindings/java/src"))
        }
    }

    compileOptions {
        sourceCompatibility = JavaVersion.toVersion(libs.versions.java.get())
        targetCompatibility = JavaVersion.toVersion(libs.versions.java.get())
    }

    publishing {
        singleVariant("release") {
            withSourcesJar()
            withJavadocJar()
        }
    }
}

dependencies {
    compileOnly(libs.annotations)
}

publishing {
    publications {
        register<MavenPublication>("release") {
            groupId = "org.vornrenderer"
            artifactId = "vornrenderer"
            version = libraryVersion
            pom {
                name = "vornrenderer"
                description = "Video rendering into GL textures"
                licenses {
                    license {
                        name = "Apache-2.0"
                        url = "https://www.apache.org/licenses/LICENSE-2.0"
                    }
                }
            }
            afterEvaluate {
                from(components["release"])
            }
        }
    }
    repositories {
        maven {
            name = "build"
            url = uri(layout.buildDirectory.dir("repository"))
        }
    }
}
