target_sources(veldor_platform PRIVATE ${CMAKE_CURRENT_LIST_DIR}/ini_store.cpp)
