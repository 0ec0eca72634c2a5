#include "Platform/Security/GLibThread.h"

#include <glib.h>

#include <utility>

GLibThread::GLibThread()
    : m_context(g_main_context_new()),
      m_loop(g_main_loop_new(m_context, FALSE)),
      m_thread([this] { runLoop(); }) {}

GLibThread::~GLibThread() {
    finish();
    g_main_loop_unref(m_loop);
    g_main_context_unref(m_context);
}

void GLibThread::finish() {
    if (m_thread.joinable()) {
        run([this] { g_main_loop_quit(m_loop); });
        m_thread.join();
    }
}

void GLibThread::runLoop() {
    g_main_context_push_thread_default(m_context);
    g_main_loop_run(m_loop);
    // Drain pending sources; they free memory.
    while (g_main_context_iteration(m_context, FALSE)) {
    }
    g_main_context_pop_thread_default(m_context);
}

void GLibThread::run(std::function<void()> block) {
    {
        const std::lock_guard lock(m_mutex);
        m_blocks.push_back(std::move(block));
    }
    GSource *source = g_idle_source_new();
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    g_source_set_callback(
        source,
        [](gpointer thread) {
            static_cast<GLibThread *>(thread)->runNext();
            return G_SOURCE_REMOVE;
        },
        this, nullptr);
    g_source_attach(source, m_context);
    g_source_unref(source);
}

void GLibThread::runNext() {
    std::function<void()> block;
    {
        const std::lock_guard lock(m_mutex);
        block = std::move(m_blocks.front());
        m_blocks.pop_front();
    }
    block();
}
